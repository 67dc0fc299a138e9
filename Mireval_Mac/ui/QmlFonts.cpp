#include "ui/QmlFonts.h"

#include <QFontInfo>
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

QFont QmlFonts::system(int pixelSize, int weight, AppLanguage language) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  font.setWeight(static_cast<QFont::Weight>(weight));
  if (const QString family = eastAsianFamily(language); !family.isEmpty()) {
    // By its real name: in a list, a generic one would be passed over, as what is missing is.
    font.setFamilies({QFontInfo(font).family(), family});
  }
  return font;
}

}  // namespace mireval
