import QtQuick
import Mireval

Item {
    id: grid

    required property AudioPlayerController audioPlayer
    required property AppLocalization localization
    required property PanelColors colors
    required property var modes
    required property real spacing

    readonly property real cellWidth: (width - spacing * (modes.length - 1)) / modes.length

    implicitHeight: 84
    Accessible.role: Accessible.Grouping
    Accessible.name: localization.spokenLabel("modes", localization.effectiveLanguage)

    Row {
        anchors.centerIn: parent
        spacing: grid.spacing

        Repeater {
            model: grid.modes

            // This Qt's linter does not yet let a delegate promise to see the ids around it.
            // qmllint disable unqualified
            ModeButton {
                required property var modelData
                required property int index

                focus: index === 0
                objectName: "mode-" + symbol
                width: grid.cellWidth
                height: grid.height
                label: grid.localization.moodTitle(modelData, grid.localization.effectiveLanguage)
                symbol: Moods.symbolName(modelData)
                selected: grid.audioPlayer.currentMood === modelData
                playing: grid.audioPlayer.isPlaying
                font: Fonts.systemFor(12, Font.DemiBold, grid.localization.effectiveLanguage)
                colors: grid.colors
                Accessible.description: selected ? grid.localization.spokenLabel(playing ? "playing" : "paused", grid.localization.effectiveLanguage) : ""
                onClicked: {
                    if (selected && grid.audioPlayer.currentTrack !== undefined)
                        grid.audioPlayer.togglePlayback();
                    else
                        grid.audioPlayer.selectMood(modelData);
                }
            }
            // qmllint enable unqualified
        }
    }
}
