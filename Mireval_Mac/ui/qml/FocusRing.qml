import QtQuick

// Shows which button the keyboard would press. Only the keyboard gives a button the focus.
ContinuousRectangle {
    id: ring

    required property Item button
    required property color color

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -3
    radius: height / 2
    visible: button.activeFocus
    strokeColor: color
    strokeWidth: 2
}
