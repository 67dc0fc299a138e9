#include "ui/QmlFonts.h"

#include <QGuiApplication>

namespace mireval {
namespace {

QString eastAsianFamily(AppLanguage language) {
  switch (language) {
    case AppLanguage::chineseSimplified:
      return QStringLiteral("Noto Sans CJK SC");
    case AppLanguage::chineseTraditional:
      return QStringLiteral("Noto Sans CJK TC");
    case AppLanguage::japanese:
      return QStringLiteral("Noto Sans CJK JP");
    case AppLanguage::english:
      break;
  }
  return {};
}

}  // namespace

QFont QmlFonts::system(int pixelSize, int weight) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

QFont QmlFonts::systemFor(int pixelSize, int weight, AppLanguage language) {
  QFont font = system(pixelSize, weight);
  if (const QString family = eastAsianFamily(language); !family.isEmpty()) {
    // Not the other way round: what stands behind a family's first use is what Qt then always takes for the
    // characters that it lacks. A family that is missing is passed over.
    font.setFamilies(QStringList(family) + font.families());
  }
  return font;
}

}  // namespace mireval
