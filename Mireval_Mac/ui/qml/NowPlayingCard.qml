import QtQuick
import Mireval

Card {
    id: card

    required property AudioPlayerController audioPlayer
    required property AppLocalization localization

    Text {
        id: caption

        objectName: "caption"
        text: card.localization.text(L10nKeys.nowPlaying, card.localization.effectiveLanguage)
        color: card.colors.captionText
        font: Fonts.systemFor(11, Font.Medium, card.localization.effectiveLanguage)
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    MacMonochromeProgressStyle {
        objectName: "progress"
        width: parent.width
        height: 4
        label: caption.text
        fraction: card.audioPlayer.playbackProgress
        tint: card.colors.ink
    }

    Text {
        id: placeholder

        visible: false
        text: card.localization.text(L10nKeys.selectMode, card.localization.effectiveLanguage)
        font: Fonts.systemFor(20, Font.DemiBold, card.localization.effectiveLanguage)
    }

    Text {
        objectName: "title"
        width: parent.width
        // The panel must not jump when an English title takes the place of a Chinese text.
        height: Math.max(implicitHeight, placeholder.implicitHeight)
        text: card.audioPlayer.currentTrack?.title ?? placeholder.text
        textFormat: Text.PlainText
        color: card.colors.ink
        elide: Text.ElideRight
        maximumLineCount: 1
        verticalAlignment: Text.AlignVCenter
        font: card.audioPlayer.currentTrack === undefined ? placeholder.font : Fonts.system(20, Font.DemiBold)
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
                objectName: "transport-previous"
                symbol: "chevron.left"
                localization: card.localization
                colors: card.colors
                onClicked: card.audioPlayer.playPreviousTrack()
            }

            TransportButton {
                objectName: "transport-playPause"
                symbol: card.audioPlayer.isPlaying ? "pause.fill" : "play.fill"
                localization: card.localization
                colors: card.colors
                onClicked: {
                    if (card.audioPlayer.isPlaying)
                        card.audioPlayer.togglePlayback();
                    else
                        card.audioPlayer.selectMood(card.audioPlayer.currentMood ?? Moods.focus);
                }
            }

            TransportButton {
                objectName: "transport-next"
                symbol: "chevron.right"
                localization: card.localization
                colors: card.colors
                onClicked: card.audioPlayer.playNextTrack()
            }
        }

        MonospacedDigitsText {
            objectName: "position"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: card.audioPlayer.playlistPositionText
            color: card.colors.quietText
            font: Fonts.system(11, Font.DemiBold)
        }
    }
}
