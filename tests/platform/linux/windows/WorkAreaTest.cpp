#include "platform/linux/windows/WorkArea.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

constexpr QRect screen{0, 0, 1280, 800};
constexpr QSize desktop{1280, 800};

Strut strutAtLeft(std::uint32_t size, std::uint32_t start, std::uint32_t end) {
  return {size, 0, 0, 0, start, end, 0, 0, 0, 0, 0, 0};
}

Strut strutAtRight(std::uint32_t size, std::uint32_t start, std::uint32_t end) {
  return {0, size, 0, 0, 0, 0, start, end, 0, 0, 0, 0};
}

Strut strutAtTop(std::uint32_t size, std::uint32_t start, std::uint32_t end) {
  return {0, 0, size, 0, 0, 0, 0, 0, start, end, 0, 0};
}

Strut strutAtBottom(std::uint32_t size, std::uint32_t start, std::uint32_t end) {
  return {0, 0, 0, size, 0, 0, 0, 0, 0, 0, start, end};
}

TEST(WorkAreaTest, WithoutBarsTheWholeScreen) {
  EXPECT_EQ(workArea(screen, desktop, {}), screen);
}

TEST(WorkAreaTest, OneBarAtEachEdge) {
  EXPECT_EQ(workArea(screen, desktop, {strutAtLeft(48, 0, 799)}), QRect(48, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, desktop, {strutAtRight(48, 0, 799)}), QRect(0, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, desktop, {strutAtTop(26, 0, 1279)}), QRect(0, 26, 1280, 774));
  EXPECT_EQ(workArea(screen, desktop, {strutAtBottom(26, 0, 1279)}), QRect(0, 0, 1280, 774));
}

TEST(WorkAreaTest, TheThickestBarOfAnEdgeCounts) {
  EXPECT_EQ(workArea(screen, desktop, {strutAtTop(40, 0, 600), strutAtTop(26, 601, 1279)}),
            QRect(0, 40, 1280, 760));
}

TEST(WorkAreaTest, BarsOfOtherScreensCountWhereTheyAre) {
  const QSize both(2560, 800);
  const QRect second(1280, 0, 1280, 800);
  EXPECT_EQ(workArea(screen, both, {strutAtTop(26, 1280, 2559)}), screen);
  EXPECT_EQ(workArea(second, both, {strutAtTop(26, 1280, 2559)}), QRect(1280, 26, 1280, 774));
  // Between the screens: measured from the desktop's edge, across the whole other screen.
  EXPECT_EQ(workArea(screen, both, {strutAtRight(1280 + 48, 0, 799)}), QRect(0, 0, 1232, 800));
  EXPECT_EQ(workArea(second, both, {strutAtRight(1280 + 48, 0, 799)}), second);
  EXPECT_EQ(workArea(second, both, {strutAtLeft(1280 + 48, 0, 799)}), QRect(1328, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, both, {strutAtLeft(1280 + 48, 0, 799)}), screen);
}

TEST(WorkAreaTest, LowerScreenHasItsBarAboveTheDesktopsEdge) {
  // The right screen ends 200 pixels above the left one.
  const QSize both(2560, 1000);
  const QRect left(0, 0, 1280, 1000);
  const QRect right(1280, 0, 1280, 800);
  const Strut onRight = strutAtBottom(200 + 30, 1280, 2559);
  EXPECT_EQ(workArea(right, both, {onRight}), QRect(1280, 0, 1280, 770));
  EXPECT_EQ(workArea(left, both, {onRight}), left);
}

TEST(WorkAreaTest, NonsenseKeepsNothingFree) {
  EXPECT_EQ(workArea(screen, desktop, {{}, {26}, Strut(11, 26), Strut(13, 26)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {Strut(12, UINT32_MAX)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {strutAtTop(26, 1279, 0)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {strutAtTop(799, 0, 1279), strutAtBottom(799, 0, 1279)}), screen);
}

}  // namespace
}  // namespace mireval
