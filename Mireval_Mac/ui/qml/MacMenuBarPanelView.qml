import QtQuick
import Mireval

Item {
    id: panel

    required property AudioPlayerController audioPlayer
    required property AppLocalization localization
    required property ColorScheme colorScheme

    readonly property var modes: [Moods.focus, Moods.tempo, Moods.creative, Moods.relaxation]
    readonly property real cornerRadius: 28
    readonly property real panelWidth: 338
    readonly property real panelPadding: 16
    readonly property real modeSpacing: 12

    readonly property PanelColors colors: PanelColors {
        dark: panel.colorScheme.dark
    }

    width: panelWidth
    height: Math.ceil(sections.implicitHeight) + 2 * panelPadding

    ContinuousRectangle {
        anchors.fill: parent
        radius: panel.cornerRadius
        fillColor: panel.colors.paper
    }

    PanelStroke {
        anchors.fill: parent
        radius: panel.cornerRadius
        colors: panel.colors
    }

    Column {
        id: sections

        x: panel.panelPadding
        y: panel.panelPadding
        width: panel.panelWidth - 2 * panel.panelPadding
        spacing: 18

        ModeGrid {
            width: parent.width
            audioPlayer: panel.audioPlayer
            localization: panel.localization
            colors: panel.colors
            modes: panel.modes
            spacing: panel.modeSpacing
        }

        NowPlayingCard {
            width: parent.width
            audioPlayer: panel.audioPlayer
            localization: panel.localization
            colors: panel.colors
        }

        FooterCard {
            objectName: "footer"
            width: parent.width
            localization: panel.localization
            colors: panel.colors
        }
    }
}
