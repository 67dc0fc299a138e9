import QtQuick

Card {
    id: card

    required property string quitLabel

    Rectangle {
        width: parent.width
        height: 1
        color: card.colors.stroke
    }

    Item {
        width: parent.width
        implicitHeight: quitText.implicitHeight

        PlainButton {
            objectName: "quit"
            anchors.right: parent.right
            width: quitText.implicitWidth
            height: quitText.implicitHeight
            label: card.quitLabel
            onClicked: Qt.quit()

            Text {
                id: quitText

                text: card.quitLabel
                color: card.colors.quietText
                font.pixelSize: 12
                font.weight: Font.DemiBold
            }
        }
    }
}
