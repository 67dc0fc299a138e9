#pragma once

#include "localization/AppLanguage.h"

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>

namespace mireval {

/// The fonts of the interface for QML.
class QmlFonts final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Fonts)
  QML_SINGLETON

 public:
  /// The desktop's own font. Characters that Chinese and Japanese share come in the shapes of the language.
  /// `weight` is one of QFont::Weight.
  Q_INVOKABLE static QFont system(int pixelSize, int weight, mireval::AppLanguage language);
};

}  // namespace mireval
