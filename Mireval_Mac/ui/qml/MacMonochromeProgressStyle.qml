import QtQuick
import Mireval

// A bar whose fill is as long as the fraction says; no fraction (undefined) is an empty bar.
ProgressIndicator {
    id: bar

    required property var fraction
    required property color tint

    value: fraction ?? 0
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label

    ContinuousRectangle {
        anchors.fill: parent
        radius: height / 2
        fillColor: Qt.alpha(bar.tint, 0.14)
    }

    ContinuousRectangle {
        objectName: "fill"
        width: Math.max(bar.width * bar.value, 0)
        height: bar.height
        visible: width > 0
        radius: height / 2
        fillColor: bar.tint
    }
}
