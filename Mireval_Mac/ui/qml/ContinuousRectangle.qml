import QtQuick
import QtQuick.Shapes

// A rounded rectangle whose corners bend gradually: the middle 18 degrees of each corner are a circle of the
// given radius, and a curve whose curvature falls to zero joins it to each edge.
Shape {
    id: rectangle

    required property real radius
    property color fillColor: "transparent"
    property color strokeColor: "transparent"

    // Distances from the corner, per unit of radius: where the edge ends, its two control points, and the
    // near and far coordinate of the circle's ends.
    readonly property real reach: 1.213916
    readonly property real usedRadius: Math.min(radius, Math.min(width, height) / 2 / reach)
    readonly property real e: reach * usedRadius
    readonly property real c: 0.944498 * usedRadius
    readonly property real d: 0.675080 * usedRadius
    readonly property real n: 0.190983 * usedRadius
    readonly property real f: 0.412215 * usedRadius

    ShapePath {
        fillColor: rectangle.fillColor
        strokeColor: rectangle.strokeColor
        strokeWidth: 1
        capStyle: ShapePath.FlatCap
        joinStyle: ShapePath.MiterJoin
        miterLimit: 10

        PathSvg {
            path: {
                const w = rectangle.width, h = rectangle.height, r = rectangle.usedRadius;
                const e = rectangle.e, c = rectangle.c, d = rectangle.d, n = rectangle.n, f = rectangle.f;
                return `M ${e} 0 L ${w - e} 0`
                    + ` C ${w - c} 0 ${w - d} 0 ${w - f} ${n} A ${r} ${r} 0 0 1 ${w - n} ${f}`
                    + ` C ${w} ${d} ${w} ${c} ${w} ${e} L ${w} ${h - e}`
                    + ` C ${w} ${h - c} ${w} ${h - d} ${w - n} ${h - f} A ${r} ${r} 0 0 1 ${w - f} ${h - n}`
                    + ` C ${w - d} ${h} ${w - c} ${h} ${w - e} ${h} L ${e} ${h}`
                    + ` C ${c} ${h} ${d} ${h} ${f} ${h - n} A ${r} ${r} 0 0 1 ${n} ${h - f}`
                    + ` C 0 ${h - d} 0 ${h - c} 0 ${h - e} L 0 ${e}`
                    + ` C 0 ${c} 0 ${d} ${n} ${f} A ${r} ${r} 0 0 1 ${f} ${n}`
                    + ` C ${d} 0 ${c} 0 ${e} 0 Z`;
            }
        }
    }
}
