import QtQuick
import QtQuick.Shapes
import Mireval

// A rounded rectangle whose corners bend gradually. Its outline is drawn half inside and half outside.
Shape {
    id: rectangle

    required property real radius
    property color fillColor: "transparent"
    property color strokeColor: "transparent"
    property real strokeWidth: 1

    ShapePath {
        fillColor: rectangle.fillColor
        strokeColor: rectangle.strokeColor
        strokeWidth: rectangle.strokeWidth
        capStyle: ShapePath.FlatCap
        joinStyle: ShapePath.MiterJoin
        miterLimit: 10

        PathSvg {
            path: Outlines.continuousRectangle(rectangle.width, rectangle.height, rectangle.radius)
        }
    }
}
