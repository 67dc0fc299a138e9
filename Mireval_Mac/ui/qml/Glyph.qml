import QtQuick
import QtQuick.Shapes

// A symbol by name, drawn on a 20 by 20 grid that is a quarter larger than its font size.
Shape {
    id: glyph

    required property string name
    required property real fontSize
    required property color color

    readonly property real unit: fontSize / 16
    readonly property var lines: ({
            "scope": "M 10 3.5 A 6.5 6.5 0 0 1 10 16.5 A 6.5 6.5 0 0 1 10 3.5 Z M 10 1.5 V 7 M 10 13 V 18.5 M 1.5 10 H 7 M 13 10 H 18.5",
            "metronome": "M 7.6 2.6 H 12.4 L 16 17.2 H 4 Z M 5 13.2 H 15 M 10 13 L 15.8 5.4",
            "wind": "M 2 7.8 H 10.6 A 2.5 2.5 0 1 0 8.3 4.4 M 2 11 H 15.2 A 2.7 2.7 0 1 0 12.7 7.3 M 2 14.2 H 9.4 A 2.2 2.2 0 1 1 7.3 17",
            "chevron.left": "M 12.6 3.6 L 6.2 10 L 12.6 16.4",
            "chevron.right": "M 7.4 3.6 L 13.8 10 L 7.4 16.4",
            "play.fill": "M 6 4.3 L 15.4 10 L 6 15.7 Z",
            "pause.fill": "",
            "sparkles": ""
        })
    readonly property var areas: ({
            "play.fill": "M 6 4.3 L 15.4 10 L 6 15.7 Z",
            "pause.fill": "M 6 3.4 H 7.6 A 0.8 0.8 0 0 1 8.4 4.2 V 15.8 A 0.8 0.8 0 0 1 7.6 16.6 H 6 A 0.8 0.8 0 0 1 5.2 15.8 V 4.2 A 0.8 0.8 0 0 1 6 3.4 Z M 12.4 3.4 H 14 A 0.8 0.8 0 0 1 14.8 4.2 V 15.8 A 0.8 0.8 0 0 1 14 16.6 H 12.4 A 0.8 0.8 0 0 1 11.6 15.8 V 4.2 A 0.8 0.8 0 0 1 12.4 3.4 Z",
            "sparkles": "M 7.8 4.6 C 8.6 9.2 9.6 10.2 14.2 11 C 9.6 11.8 8.6 12.8 7.8 17.4 C 7 12.8 6 11.8 1.4 11 C 6 10.2 7 9.2 7.8 4.6 Z M 14.8 1.4 C 15.2 3.9 15.8 4.5 18.3 4.9 C 15.8 5.3 15.2 5.9 14.8 8.4 C 14.4 5.9 13.8 5.3 11.3 4.9 C 13.8 4.5 14.4 3.9 14.8 1.4 Z M 15.6 13.2 C 15.9 14.9 16.3 15.3 18 15.6 C 16.3 15.9 15.9 16.3 15.6 18 C 15.3 16.3 14.9 15.9 13.2 15.6 C 14.9 15.3 15.3 14.9 15.6 13.2 Z"
        })

    // Newer shapes take the size of what is drawn for their implicit size, and symbols would leave the centre.
    width: 20 * unit
    height: 20 * unit

    ShapePath {
        fillColor: "transparent"
        strokeColor: glyph.color
        strokeWidth: 1.8 * glyph.unit
        capStyle: ShapePath.RoundCap
        joinStyle: ShapePath.RoundJoin
        scale: Qt.size(glyph.unit, glyph.unit)

        PathSvg {
            path: glyph.lines[glyph.name] ?? ""
        }
    }

    ShapePath {
        fillColor: glyph.color
        strokeColor: "transparent"
        scale: Qt.size(glyph.unit, glyph.unit)

        PathSvg {
            path: glyph.areas[glyph.name] ?? ""
        }
    }
}
