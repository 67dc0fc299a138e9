import QtQuick

// The behaviour of a button without any look of its own.
Item {
    id: button

    required property string label

    signal clicked

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.focusable: true
    Accessible.onPressAction: clicked()

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Space || event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            event.accepted = true;
            if (!event.isAutoRepeat)
                clicked();
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
