#include "ui/TextInk.h"

#include <QCache>
#include <QGlyphRun>
#include <QPainterPath>
#include <QRawFont>
#include <QStringList>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace mireval {
namespace {

TextInk measureInk(const QString& text, const QFont& font) {
  QTextLayout layout(text, font);
  QTextOption option;
  // As in QML: a character may stand at a fraction of a pixel.
  option.setUseDesignMetrics(true);
  layout.setTextOption(option);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  TextInk ink;
  ink.lineHeight = line.isValid() ? line.height() : 0;
  const QList<QGlyphRun> runs = layout.glyphRuns();
  for (const QGlyphRun& run : runs) {
    const QRawFont rawFont = run.rawFont();
    const QList<quint32> glyphs = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    for (qsizetype index = 0; index < glyphs.size(); ++index) {
      ink.box |= rawFont.pathForGlyph(glyphs[index]).boundingRect().translated(positions[index]);
    }
  }
  return ink;
}

}  // namespace

TextInk inkOf(const QString& text, const QFont& font) {
  // Measuring hints every outline. The bindings of a new panel ask for the same words several times, and
  // those of the next panel ask again.
  constexpr qsizetype wordsOfTwoLanguages = 32;
  // Without the font itself, which would keep Qt's font engines in memory.
  static QCache<QStringList, TextInk> known(wordsOfTwoLanguages);
  const QStringList key = font.families() << font.key() << text;
  if (const TextInk* const ink = known.object(key)) {
    return *ink;
  }
  const TextInk ink = measureInk(text, font);
  known.insert(key, new TextInk(ink));
  return ink;
}

QFont narrowedTo(double room, const QString& text, const QFont& font) {
  const double excess = inkOf(text, font).box.width() - room;
  const auto gaps = static_cast<double>(text.size() - 1);
  if (excess <= 0 || gaps < 1) {
    return font;
  }
  QFont narrowed = font;
  narrowed.setLetterSpacing(QFont::AbsoluteSpacing, -std::min(excess / gaps, font.pixelSize() / 12.0));
  return narrowed;
}

}  // namespace mireval
