#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

namespace mireval {

/// Where a line of text has ink and how high it is. A text's own width includes the air at both ends of the
/// line, which differs from letter to letter, so that its middle is not the middle of what is seen.
struct TextInk {
  /// What the outlines of the characters cover, in device-independent pixels from the line's top left corner.
  /// Empty for a text without outlines.
  QRectF box;
  double lineHeight = 0;
};

/// The text on one line, as the views lay it out. Remembers what it was asked last. For the UI thread.
TextInk inkOf(const QString& text, const QFont& font);

/// The font with less space between the letters, so that the text's ink is as wide as `room` at most. Takes a
/// twelfth of the font's size from each gap at most; the ink of a text too wide for that stays wider.
QFont narrowedTo(double room, const QString& text, const QFont& font);

}  // namespace mireval
