import QtQuick

Item {
    id: card

    required property PanelColors colors
    default property alias content: column.data

    readonly property real padding: 14
    readonly property real spacing: 10
    readonly property real radius: 22

    implicitHeight: column.implicitHeight + 2 * padding

    ContinuousRectangle {
        anchors.fill: parent
        radius: card.radius
        fillColor: card.colors.cardFill
    }

    Column {
        id: column

        spacing: card.spacing
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: card.padding
        }
    }

    PanelStroke {
        anchors.fill: parent
        radius: card.radius
        colors: card.colors
    }
}
