import QtQuick
import Mireval

PlainButton {
    id: button

    required property string symbol
    required property bool selected
    required property bool playing
    required property font font
    required property PanelColors colors

    readonly property real diameter: Math.min(width, 72)
    readonly property color foreground: selected ? colors.paper : colors.ink

    // The symbol and the title are one above the other, in the middle of the circle.
    readonly property real titleHeight: Fonts.lineHeight(label, font)
    readonly property real symbolX: (width - glyph.width) / 2
    readonly property real symbolY: (height - glyph.height - 2 - titleHeight) / 2
    readonly property real titleY: symbolY + glyph.height + 2
    // How wide the circle is where the title's ink ends.
    readonly property real titleBottom: titleY + Fonts.inkBox(label, font).bottom - height / 2
    readonly property real titleRoom: 2 * Math.sqrt(Math.max(0, (diameter - 1) ** 2 / 4 - titleBottom ** 2)) - 4

    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected

    // Placed by hand: an anchor to the centre would round to whole pixels, and each release of Qt does it differently.
    Circle {
        objectName: "circle"
        x: (button.width - width) / 2
        y: (button.height - height) / 2
        width: button.diameter
        height: button.diameter
        fillColor: button.selected ? button.colors.ink : button.colors.modeFill
        strokeColor: button.colors.stroke

        FocusRing {
            button: button
            color: button.colors.ink
        }
    }

    Glyph {
        id: glyph

        objectName: "symbol"
        // The cell may begin between two pixels.
        x: glyph.wholePixels ? Math.round(button.x + button.symbolX) - button.x : button.symbolX
        y: glyph.wholePixels ? Math.round(button.symbolY) : button.symbolY
        name: button.selected && !button.playing ? "play.fill" : button.symbol
        fontSize: 16
        color: button.foreground
    }

    Text {
        id: title

        readonly property rect ink: Fonts.inkBox(text, font)

        objectName: "modeTitle"
        Accessible.ignored: true
        x: button.width / 2 - ink.x - ink.width / 2
        y: button.titleY
        text: button.label
        color: button.foreground
        font: Fonts.narrowed(button.titleRoom, button.label, button.font)
    }

    // What shows through is paper. This is the opacity of the whole: that of an item goes to each of its parts.
    Rectangle {
        objectName: "veil"
        anchors.fill: parent
        // The focus ring is wider than the button.
        anchors.margins: -5
        visible: !(button.selected && button.playing)
        color: button.colors.paper
        opacity: 0.02
    }
}
