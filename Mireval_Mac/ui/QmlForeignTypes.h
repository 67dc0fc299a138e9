#pragma once

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"
#include "playback/AudioPlayerController.h"

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace mireval {

/// These make the objects that views render known to QML, since their own folders do not know QML.
struct QmlPlaybackState {
  Q_GADGET
  QML_FOREIGN(mireval::PlaybackState)
  QML_ANONYMOUS
};

struct QmlAudioPlayerController {
  Q_GADGET
  QML_FOREIGN(mireval::AudioPlayerController)
  QML_NAMED_ELEMENT(AudioPlayerController)
  QML_UNCREATABLE("Made by the application")
};

struct QmlAppLocalization {
  Q_GADGET
  QML_FOREIGN(mireval::AppLocalization)
  QML_NAMED_ELEMENT(AppLocalization)
  QML_UNCREATABLE("Made by the application")
};

namespace qml_app_language {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(mireval::app_language)
QML_NAMED_ELEMENT(AppLanguages)
}  // namespace qml_app_language

struct QmlColorScheme {
  Q_GADGET
  QML_FOREIGN(mireval::ColorScheme)
  QML_NAMED_ELEMENT(ColorScheme)
  QML_UNCREATABLE("Made by the application")
};

}  // namespace mireval
