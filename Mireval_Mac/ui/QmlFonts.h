#pragma once

#include "localization/AppLanguage.h"

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>

namespace mireval {

/// The fonts of the interface for QML. A weight is one of QFont::Weight.
class QmlFonts final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Fonts)
  QML_SINGLETON

 public:
  /// The desktop's own font.
  Q_INVOKABLE static QFont system(int pixelSize, int weight);

  /// The font for a text in the language: for the characters that Chinese and Japanese share, a family with
  /// the shapes of that language if one is installed; for all others the desktop's own font.
  Q_INVOKABLE static QFont systemFor(int pixelSize, int weight, mireval::app_language::AppLanguage language);
};

}  // namespace mireval
