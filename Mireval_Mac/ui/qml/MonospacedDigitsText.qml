import QtQuick

// A line of text in which every digit takes the same room, so that counting does not move it.
Row {
    id: line

    required property string text
    required property font font
    required property color color

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    FontMetrics {
        id: metrics

        font: line.font
    }

    Repeater {
        model: line.text.length

        // This Qt's linter does not yet let a delegate promise to see the ids around it.
        // qmllint disable unqualified
        Text {
            required property int index

            width: text >= "0" && text <= "9" ? metrics.advanceWidth("0") : implicitWidth
            horizontalAlignment: Text.AlignHCenter
            text: line.text.charAt(index)
            font: line.font
            color: line.color
        }
        // qmllint enable unqualified
    }
}
