import QtQuick
import Mireval

Card {
    id: card

    required property AudioPlayerController audioPlayer
    required property string caption
    required property string placeholder

    Text {
        text: card.caption
        color: card.colors.captionText
        font.pixelSize: 11
        font.weight: Font.Medium
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    MacMonochromeProgressStyle {
        objectName: "progress"
        width: parent.width
        height: 4
        fraction: card.audioPlayer.playbackProgress
        tint: card.colors.ink
    }

    Text {
        objectName: "title"
        width: parent.width
        text: card.audioPlayer.currentTrack?.title ?? card.placeholder
        textFormat: Text.PlainText
        color: card.colors.ink
        elide: Text.ElideRight
        maximumLineCount: 1
        font.pixelSize: 20
        font.weight: Font.DemiBold
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Item {
        width: parent.width
        implicitHeight: buttons.implicitHeight

        Row {
            id: buttons

            spacing: 10

            TransportButton {
                label: "Previous"
                symbol: "chevron.left"
                colors: card.colors
                onClicked: card.audioPlayer.playPreviousTrack()
            }

            TransportButton {
                label: card.audioPlayer.isPlaying ? "Pause" : "Play"
                objectName: "transport-PlayPause"
                symbol: card.audioPlayer.isPlaying ? "pause.fill" : "play.fill"
                colors: card.colors
                onClicked: {
                    if (card.audioPlayer.isPlaying)
                        card.audioPlayer.togglePlayback();
                    else
                        card.audioPlayer.selectMood(card.audioPlayer.currentMood ?? Moods.focus);
                }
            }

            TransportButton {
                label: "Next"
                symbol: "chevron.right"
                colors: card.colors
                onClicked: card.audioPlayer.playNextTrack()
            }
        }

        Text {
            objectName: "position"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: card.audioPlayer.playlistPositionText
            color: card.colors.quietText
            font.pixelSize: 11
            font.weight: Font.DemiBold
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
