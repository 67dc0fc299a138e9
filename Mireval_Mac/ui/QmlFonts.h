#pragma once

#include "localization/AppLanguage.h"
#include "ui/TextInk.h"

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>
#include <QRectF>
#include <QString>

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

  /// See TextInk.
  Q_INVOKABLE static QRectF inkBox(const QString& text, const QFont& font) { return inkOf(text, font).box; }
  Q_INVOKABLE static qreal lineHeight(const QString& text, const QFont& font) {
    return inkOf(text, font).lineHeight;
  }
  Q_INVOKABLE static QFont narrowed(qreal room, const QString& text, const QFont& font) {
    return narrowedTo(room, text, font);
  }
};

}  // namespace mireval
