import QtQuick
import Mireval

// Shows which button the keyboard would press, while the keyboard is used.
ContinuousRectangle {
    id: ring

    required property ButtonBehaviour button
    required property color color

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -3
    radius: height / 2
    visible: button.showsFocus
    strokeColor: color
    strokeWidth: 2
}
