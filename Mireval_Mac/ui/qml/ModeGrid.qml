import QtQuick
import Mireval

Item {
    id: grid

    required property AudioPlayerController audioPlayer
    required property PanelColors colors
    required property var modes
    required property var titles
    required property real spacing

    readonly property real cellWidth: (width - spacing * (modes.length - 1)) / modes.length

    implicitHeight: 84

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

                objectName: "mode-" + symbol
                width: grid.cellWidth
                height: grid.height
                label: grid.titles[index]
                symbol: Moods.symbolName(modelData)
                selected: grid.audioPlayer.currentMood === modelData
                playing: grid.audioPlayer.isPlaying
                colors: grid.colors
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
