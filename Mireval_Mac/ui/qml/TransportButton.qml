import QtQuick

PlainButton {
    id: button

    required property string symbol
    required property PanelColors colors

    objectName: "transport-" + label
    implicitWidth: 34
    implicitHeight: 34

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: button.colors.transportFill
    }

    Glyph {
        objectName: "symbol"
        anchors.centerIn: parent
        name: button.symbol
        fontSize: 13
        color: button.colors.ink
    }
}
