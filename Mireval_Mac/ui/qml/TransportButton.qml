import QtQuick
import Mireval

PlainButton {
    id: button

    required property string symbol
    required property AppLocalization localization
    required property PanelColors colors

    implicitWidth: 34
    implicitHeight: 34
    label: localization.spokenLabel(symbol, localization.effectiveLanguage)

    Circle {
        width: button.width
        height: button.height
        fillColor: button.colors.transportFill

        FocusRing {
            button: button
            color: button.colors.ink
        }
    }

    Glyph {
        objectName: "symbol"
        x: (button.width - width) / 2
        y: (button.height - height) / 2
        name: button.symbol
        fontSize: 13
        color: button.colors.ink
    }
}
