#include "localization/StringTables.h"
#include "ui/QmlFonts.h"
#include "ui/pictures/PictureFixture.h"

#include <QGlyphRun>
#include <QTextLayout>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct Shaped {
  QList<quint32> glyphs;

  /// Glyph 0 is the box that stands for what a font lacks.
  bool isComplete() const { return !glyphs.contains(0); }
};

/// How the text is set in the interface's font for the language.
Shaped shape(const QString& text, AppLanguage language) {
  QTextLayout layout(text, QmlFonts::systemFor(12, QFont::DemiBold, language));
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  Shaped shaped;
  const auto runs = layout.glyphRuns();
  for (const QGlyphRun& run : runs) {
    shaped.glyphs << run.glyphIndexes();
  }
  return shaped;
}

TEST(TextTest, EveryCharacterHasAGlyph) {
  for (const LanguageTables& tables : shippedTables()) {
    for (const auto& [key, text] : tables.texts) {
      EXPECT_TRUE(shape(text.toString(), tables.language).isComplete()) << text.toString().toStdString();
    }
    for (const auto& [mood, title] : tables.moodTitles) {
      EXPECT_TRUE(shape(title.toString(), tables.language).isComplete()) << title.toString().toStdString();
    }
  }
  // This place of Unicode is not taken, so no font has it, and a box would have been noticed.
  EXPECT_FALSE(shape(QString(QChar(0x0378)), AppLanguage::english).isComplete());
}

TEST(TextTest, SharedCharactersComeInTheShapesOfTheLanguage) {
  // Each of the three writes it differently; the families' fonts are one file in which each has its glyphs.
  const QString bone = u"骨"_s;
  const QList<quint32> simplified = shape(bone, AppLanguage::chineseSimplified).glyphs;
  const QList<quint32> traditional = shape(bone, AppLanguage::chineseTraditional).glyphs;
  const QList<quint32> japanese = shape(bone, AppLanguage::japanese).glyphs;
  EXPECT_NE(simplified, traditional);
  EXPECT_NE(simplified, japanese);
  EXPECT_NE(traditional, japanese);
}

using TextRoomTest = PictureFixture;

TEST_F(TextRoomTest, TitlesFitTheirCircles) {
  const auto panel = makePanel();
  for (const char* const language : {"en", "zh-Hans", "zh-Hant", "ja"}) {
    speak(language);
    for (const char* const mode : {"mode-scope", "mode-metronome", "mode-sparkles", "mode-wind"}) {
      const QQuickItem* const circle = item(*panel, mode, "circle");
      EXPECT_LE(item(*panel, mode, "modeTitle")->width(), circle->width()) << language << " " << mode;
    }
  }
}

}  // namespace
}  // namespace mireval
