import QtQuick

// A bar whose fill is as long as the fraction says; no fraction (undefined) is an empty bar.
Item {
    id: bar

    required property var fraction
    required property color tint

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.alpha(bar.tint, 0.14)
    }

    Rectangle {
        objectName: "fill"
        width: Math.max(bar.width * (bar.fraction ?? 0), 0)
        height: bar.height
        radius: Math.min(width, height) / 2
        color: bar.tint
    }
}
