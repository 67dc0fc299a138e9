#pragma once

#include "localization/L10nKey.h"

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariant>

namespace mireval {

/// The text keys that views look up, as properties: QML accepts only enumerators that begin with a capital.
class QmlTextKeys final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(L10nKeys)
  QML_SINGLETON
  Q_PROPERTY(QVariant languageTitle READ languageTitle CONSTANT)
  Q_PROPERTY(QVariant nowPlaying READ nowPlaying CONSTANT)
  Q_PROPERTY(QVariant selectMode READ selectMode CONSTANT)
  Q_PROPERTY(QVariant quit READ quit CONSTANT)

 public:
  QVariant languageTitle() const { return QVariant::fromValue(L10nKey::languageTitle); }
  QVariant nowPlaying() const { return QVariant::fromValue(L10nKey::nowPlaying); }
  QVariant selectMode() const { return QVariant::fromValue(L10nKey::selectMode); }
  QVariant quit() const { return QVariant::fromValue(L10nKey::quit); }
};

}  // namespace mireval
