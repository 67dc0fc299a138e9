import QtQuick

ContinuousRectangle {
    required property PanelColors colors

    strokeColor: colors.stroke
}
