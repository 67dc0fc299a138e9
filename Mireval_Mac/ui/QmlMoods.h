#pragma once

#include "library/Mood.h"

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <QVariant>

namespace mireval {

/// The moods for QML, as properties: QML accepts only enumerators that begin with a capital.
class QmlMoods final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Moods)
  QML_SINGLETON
  Q_PROPERTY(QVariant relaxation READ relaxation CONSTANT)
  Q_PROPERTY(QVariant focus READ focus CONSTANT)
  Q_PROPERTY(QVariant creative READ creative CONSTANT)
  Q_PROPERTY(QVariant tempo READ tempo CONSTANT)

 public:
  QVariant relaxation() const { return QVariant::fromValue(Mood::relaxation); }
  QVariant focus() const { return QVariant::fromValue(Mood::focus); }
  QVariant creative() const { return QVariant::fromValue(Mood::creative); }
  QVariant tempo() const { return QVariant::fromValue(Mood::tempo); }

  /// The name of the symbol on the mood's tile.
  Q_INVOKABLE QString symbolName(mireval::Mood mood) const { return mireval::symbolName(mood); }
};

}  // namespace mireval
