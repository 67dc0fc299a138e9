#pragma once

#include "ui/ContinuousRectangle.h"

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

namespace mireval {

/// Outlines for QML, as SVG path data.
class QmlOutlines final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Outlines)
  QML_SINGLETON

 public:
  Q_INVOKABLE static QString continuousRectangle(qreal width, qreal height, qreal radius) {
    return continuousRectangleData(width, height, radius);
  }
};

}  // namespace mireval
