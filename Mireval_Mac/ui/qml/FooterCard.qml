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
            anchors.right: parent.right
            width: quitText.implicitWidth
            height: quitText.implicitHeight
            label: card.localization.text(L10nKeys.quit, card.localization.effectiveLanguage)
            onClicked: Qt.quit()

            Text {
                id: quitText

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
