import QtQuick
import Mireval

Item {
    id: settings

    required property AppLocalization localization
    required property ColorScheme colorScheme

    readonly property var appearance: Appearances.of(colorScheme.dark)
    readonly property var language: localization.effectiveLanguage

    width: 340
    height: Math.ceil(card.implicitHeight) + 2 * 20

    ContinuousRectangle {
        objectName: "card"
        anchors.fill: parent
        radius: 20
        fillColor: settings.appearance.canvas
    }

    Column {
        id: card

        x: 20
        y: 20
        width: parent.width - 2 * 20
        spacing: 16

        Text {
            objectName: "productName"
            text: "Mireval"
            color: settings.appearance.primaryText
            font: Fonts.system(24, Font.DemiBold)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Rectangle {
            objectName: "divider"
            width: parent.width
            height: 1
            color: settings.colorScheme.dark ? "#1affffff" : "#1a000000"
        }

        Column {
            spacing: 4

            Text {
                objectName: "heading"
                text: settings.localization.text(L10nKeys.languageTitle, settings.language)
                color: settings.colorScheme.dark ? "#d9ffffff" : "#d9000000"
                font: Fonts.systemFor(13, Font.DemiBold, settings.language)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            Text {
                objectName: "language"
                text: settings.localization.displayName(settings.language)
                color: settings.appearance.secondaryText
                font: Fonts.systemFor(12, Font.Medium, settings.language)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
