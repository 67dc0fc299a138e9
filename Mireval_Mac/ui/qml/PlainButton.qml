import QtQuick
import Mireval

// A button that has no look of its own and is dim while it is pressed.
ButtonBehaviour {
    id: button

    required property string label

    opacity: pressed ? 0.5 : 1
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.focusable: true
}
