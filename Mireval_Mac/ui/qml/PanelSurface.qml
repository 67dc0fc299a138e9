import QtQuick
import Mireval

// The panel with room around it for the outer half of its outline.
Item {
    id: surface

    required property AudioPlayerController audioPlayer
    required property AppLocalization localization
    required property ColorScheme colorScheme

    // Also read by the window, which cuts the corners off where transparency is missing.
    readonly property real margin: 1
    readonly property alias cornerRadius: panel.cornerRadius

    width: panel.width + 2 * margin
    height: panel.height + 2 * margin

    MacMenuBarPanelView {
        id: panel

        objectName: "panel"
        x: surface.margin
        y: surface.margin
        audioPlayer: surface.audioPlayer
        localization: surface.localization
        colorScheme: surface.colorScheme
    }
}
