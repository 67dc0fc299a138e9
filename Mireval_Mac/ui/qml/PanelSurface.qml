import QtQuick
import Mireval

// The panel with room around it for the outer half of its outline and for a shadow.
Item {
    id: surface

    required property AudioPlayerController audioPlayer
    required property AppLocalization localization
    required property ColorScheme colorScheme

    // Set by the window where transparent parts show what lies behind.
    property bool shaded: false

    // Read by the window, too.
    readonly property int shadowReach: shaded ? 16 : 0
    readonly property real margin: shadowReach + 1
    readonly property alias cornerRadius: panel.cornerRadius

    width: panel.width + 2 * margin
    height: panel.height + 2 * margin

    PanelShadow {
        anchors.fill: parent
        visible: surface.shaded
        color: Appearances.of(surface.colorScheme.dark).shadow
        inset: surface.margin
        radius: surface.cornerRadius
    }

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
