#include "ui/TextInk.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

// Qt counts in 64ths of a pixel, for each of the four gaps.
constexpr double rounding = 4.0 / 64;

QFont fontOf(int pixelSize) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  return font;
}

TEST(TextInkTest, IsTheSameWhenAskedAgain) {
  const TextInk first = inkOf(u"Focus"_s, fontOf(20));
  const TextInk again = inkOf(u"Focus"_s, fontOf(20));
  EXPECT_GT(first.box.width(), 0);
  EXPECT_EQ(again.box, first.box);
  EXPECT_EQ(again.lineHeight, first.lineHeight);
}

TEST(TextInkTest, DependsOnTheText) {
  EXPECT_LT(inkOf(u"i"_s, fontOf(20)).box.width(), inkOf(u"iii"_s, fontOf(20)).box.width());
}

TEST(TextInkTest, DependsOnTheSize) {
  const TextInk small = inkOf(u"Focus"_s, fontOf(20));
  const TextInk large = inkOf(u"Focus"_s, fontOf(40));
  EXPECT_NEAR(large.box.width(), 2 * small.box.width(), 0.1 * small.box.width());
  EXPECT_NEAR(large.lineHeight, 2 * small.lineHeight, 2);
}

TEST(TextInkTest, DependsOnTheSpaceBetweenTheLetters) {
  QFont narrow = fontOf(20);
  narrow.setLetterSpacing(QFont::AbsoluteSpacing, -1);
  EXPECT_NEAR(inkOf(u"Focus"_s, narrow).box.width(), inkOf(u"Focus"_s, fontOf(20)).box.width() - 4, rounding);
}

TEST(TextInkTest, HasNoBoxWithoutOutlines) {
  EXPECT_TRUE(inkOf(u" "_s, fontOf(20)).box.isEmpty());
}

TEST(TextInkTest, IsNarrowedToTheRoom) {
  const QFont font = fontOf(20);
  const double width = inkOf(u"Focus"_s, font).box.width();
  EXPECT_EQ(narrowedTo(width, u"Focus"_s, font), font);
  EXPECT_NEAR(inkOf(u"Focus"_s, narrowedTo(width - 3, u"Focus"_s, font)).box.width(), width - 3, rounding);
  // A twelfth of the size from each of four gaps, and no more.
  EXPECT_NEAR(inkOf(u"Focus"_s, narrowedTo(0, u"Focus"_s, font)).box.width(), width - 4 * 20 / 12.0,
              rounding);
}

}  // namespace
}  // namespace mireval
