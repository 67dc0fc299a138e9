#pragma once

#include "ui/CorvaneAppearance.h"

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace mireval {

/// The palettes for QML.
class QmlAppearances final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Appearances)
  QML_SINGLETON

 public:
  Q_INVOKABLE static mireval::CorvaneAppearance of(bool darkColorScheme) {
    return CorvaneAppearance(darkColorScheme);
  }
};

}  // namespace mireval
