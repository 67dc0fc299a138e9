import QtQuick
import Mireval

Card {
    id: card

    required property AppLocalization localization

    Rectangle {
        objectName: "divider"
        width: parent.width
        height: 1
        color: card.colors.stroke
    }

    Item {
        width: parent.width
        implicitHeight: quitText.implicitHeight

        PlainButton {
            id: quitButton

            objectName: "quit"
            // The words alone would be hard to hit: the target reaches to the card's edges and to the divider.
            x: parent.width - quitText.implicitWidth - card.padding
            y: -card.spacing
            width: quitText.implicitWidth + 2 * card.padding
            height: quitText.implicitHeight + card.spacing + card.padding
            label: card.localization.text(L10nKeys.quit, card.localization.effectiveLanguage)
            onClicked: Qt.quit()

            Text {
                id: quitText

                objectName: "quitText"
                Accessible.ignored: true
                x: card.padding
                y: card.spacing
                text: quitButton.label
                color: card.colors.quietText
                font: Fonts.systemFor(12, Font.DemiBold, card.localization.effectiveLanguage)

                FocusRing {
                    anchors.leftMargin: -7
                    anchors.rightMargin: -7
                    button: quitButton
                    color: card.colors.ink
                }
            }
        }
    }
}
