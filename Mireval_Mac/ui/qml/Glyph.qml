import QtQuick
import QtQuick.Shapes

// A symbol by name, drawn in points for the two font sizes of the panel: 20 by 20 points for a font size of 16, 16 by 16
// for 13. Its ink is centred from left to right. Straight edges lie on whole points and are sharp where those are pixels.
Shape {
    id: glyph

    required property string name
    required property int fontSize
    required property color color

    readonly property bool small: fontSize < 16
    // At other scales a symbol stands in the exact middle, between pixels if need be.
    readonly property bool wholePixels: Screen.devicePixelRatio === 1
    readonly property string largePlay: "M 7 4.5 L 16.02 10 L 7 15.5 Z"
    readonly property string smallPlay: wholePixels ? "M 5.8125 3.5 L 12.7 8 L 5.8125 12.5 Z" : "M 5.5625 3.5 L 12.92 8 L 5.5625 12.5 Z"
    readonly property var lines: ({
            "scope": "M 10 4 A 6 6 0 0 1 10 16 A 6 6 0 0 1 10 4 Z M 10 2 V 6 M 10 14 V 18 M 2 10 H 6 M 14 10 H 18",
            "metronome": "M 3.5 17 L 7.5 3 H 11.5 L 15.5 17 Z M 8.2 13.5 L 16.5 6",
            "wind": "M 4 6 H 8 A 2 2 0 1 0 6.1 3.4 M 2 10 H 15.5 A 2.5 2.5 0 1 0 13.3 6.3 M 5 14 H 10.5 A 2 2 0 1 1 8.6 16.6",
            "chevron.left": "M 10 3.5 L 5.5 8 L 10 12.5",
            "chevron.right": "M 6 3.5 L 10.5 8 L 6 12.5",
            "play.fill": small ? smallPlay : largePlay
        })
    readonly property var areas: ({
            // Within its lines, which round the corners.
            "play.fill": lines["play.fill"],
            "pause.fill": "M 4.5 3 H 6.5 A 0.5 0.5 0 0 1 7 3.5 V 12.5 A 0.5 0.5 0 0 1 6.5 13 H 4.5 A 0.5 0.5 0 0 1 4 12.5 V 3.5 A 0.5 0.5 0 0 1 4.5 3 Z M 9.5 3 H 11.5 A 0.5 0.5 0 0 1 12 3.5 V 12.5 A 0.5 0.5 0 0 1 11.5 13 H 9.5 A 0.5 0.5 0 0 1 9 12.5 V 3.5 A 0.5 0.5 0 0 1 9.5 3 Z",
            "sparkles": "M 7 3 A 0.5 0.5 0 0 1 8 3 C 9.54 7.265 9.735 7.46 14 9 A 0.5 0.5 0 0 1 14 10 C 9.735 11.54 9.54 11.735 8 16 A 0.5 0.5 0 0 1 7 16 C 5.46 11.735 5.265 11.54 1 10 A 0.5 0.5 0 0 1 1 9 C 5.265 7.46 5.46 7.265 7 3 Z M 16 1 A 0.5 0.5 0 0 1 17 1 C 17.55 2.45 17.55 2.45 19 3 A 0.5 0.5 0 0 1 19 4 C 17.55 4.55 17.55 4.55 17 6 A 0.5 0.5 0 0 1 16 6 C 15.45 4.55 15.45 4.55 14 4 A 0.5 0.5 0 0 1 14 3 C 15.45 2.45 15.45 2.45 16 1 Z M 14 13 A 0.5 0.5 0 0 1 15 13 C 15.55 14.45 15.55 14.45 17 15 A 0.5 0.5 0 0 1 17 16 C 15.55 16.55 15.55 16.55 15 18 A 0.5 0.5 0 0 1 14 18 C 13.45 16.55 13.45 16.55 12 16 A 0.5 0.5 0 0 1 12 15 C 13.45 14.45 13.45 14.45 14 13 Z"
        })

    // Newer shapes take the size of what is drawn for their implicit size, and symbols would leave the centre.
    width: small ? 16 : 20
    height: width

    ShapePath {
        fillColor: "transparent"
        strokeColor: glyph.color
        // Of a semibold font.
        strokeWidth: glyph.fontSize / 8
        capStyle: ShapePath.RoundCap
        joinStyle: ShapePath.RoundJoin

        PathSvg {
            path: glyph.lines[glyph.name] ?? ""
        }
    }

    ShapePath {
        fillColor: glyph.color
        strokeColor: "transparent"

        PathSvg {
            path: glyph.areas[glyph.name] ?? ""
        }
    }
}
