import QtQuick
import QtQuick.Shapes

PlainButton {
    id: button

    required property string symbol
    required property bool selected
    required property bool playing
    required property PanelColors colors

    readonly property real diameter: Math.min(width, 72)
    readonly property color foreground: selected ? colors.paper : colors.ink

    opacity: selected && playing ? 1.0 : 0.98

    Shape {
        id: circle

        objectName: "circle"
        width: button.diameter
        height: button.diameter
        anchors.centerIn: parent

        ShapePath {
            fillColor: button.selected ? button.colors.ink : button.colors.modeFill
            strokeColor: button.colors.stroke
            strokeWidth: 1

            PathAngleArc {
                centerX: button.diameter / 2
                centerY: button.diameter / 2
                radiusX: button.diameter / 2
                radiusY: button.diameter / 2
                sweepAngle: 360
            }
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 2

        Glyph {
            objectName: "symbol"
            anchors.horizontalCenter: parent.horizontalCenter
            name: button.selected && !button.playing ? "play.fill" : button.symbol
            fontSize: 16
            color: button.foreground
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: button.label
            color: button.foreground
            font.pixelSize: 12
            font.weight: Font.DemiBold
        }
    }
}
