import QtQuick
import Mireval

// A button that has no look of its own and is dim while it is pressed.
ButtonBehaviour {
    id: button

    required property string label
    property real restingOpacity: 1

    opacity: pressed ? restingOpacity * 0.5 : restingOpacity
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.focusable: true
}
