#include "ui/QmlFonts.h"

#include <QGuiApplication>

namespace mireval {
QFont QmlFonts::system(int pixelSize, int weight) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

QFont QmlFonts::systemFor(int pixelSize, int weight, AppLanguage language) {
  QFont font = system(pixelSize, weight);
  if (const QString family = fontFamily(language); !family.isEmpty()) {
    // First, because Qt remembers the first fallback that it took for a family and ignores later ones. Qt
    // skips a family that is not installed.
    font.setFamilies(QStringList(family) + font.families());
  }
  return font;
}

}  // namespace mireval
