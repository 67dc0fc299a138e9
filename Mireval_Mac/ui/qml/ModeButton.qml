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

    restingOpacity: selected && playing ? 1.0 : 0.98
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
        x: (button.width - width) / 2
        y: (button.height - height - 2 - title.height) / 2
        name: button.selected && !button.playing ? "play.fill" : button.symbol
        fontSize: 16
        color: button.foreground
    }

    Text {
        id: title

        objectName: "modeTitle"
        Accessible.ignored: true
        x: (button.width - width) / 2
        y: glyph.y + glyph.height + 2
        text: button.label
        color: button.foreground
        font: button.font
    }
}
