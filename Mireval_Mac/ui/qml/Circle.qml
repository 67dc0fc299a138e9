import QtQuick
import QtQuick.Shapes

// As wide as its item. Its outline is drawn half inside and half outside.
Shape {
    id: circle

    property color fillColor: "transparent"
    property color strokeColor: "transparent"
    property real strokeWidth: 1

    ShapePath {
        fillColor: circle.fillColor
        strokeColor: circle.strokeColor
        strokeWidth: circle.strokeWidth

        PathAngleArc {
            centerX: circle.width / 2
            centerY: circle.width / 2
            radiusX: circle.width / 2
            radiusY: circle.width / 2
            sweepAngle: 360
        }
    }
}
