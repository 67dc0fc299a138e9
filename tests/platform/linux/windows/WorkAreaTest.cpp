#include "platform/linux/windows/WorkArea.h"

#include <gtest/gtest.h>

#include <optional>

namespace mireval {
namespace {

constexpr QRect screen{0, 0, 1280, 800};
constexpr QSize desktop{1280, 800};

enum : std::size_t { left, right, top, bottom };

Strut strutAt(std::size_t edge, std::uint32_t size, std::uint32_t start, std::uint32_t end) {
  Strut strut(12);
  strut.at(edge) = size;
  strut.at(4 + 2 * edge) = start;
  strut.at(5 + 2 * edge) = end;
  return strut;
}

TEST(WorkAreaTest, OneBarAtEachEdgeOrNone) {
  EXPECT_EQ(workArea(screen, desktop, {}), screen);
  EXPECT_EQ(workArea(screen, desktop, {strutAt(left, 48, 0, 799)}), QRect(48, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, desktop, {strutAt(right, 48, 0, 799)}), QRect(0, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, desktop, {strutAt(top, 26, 0, 1279)}), QRect(0, 26, 1280, 774));
  EXPECT_EQ(workArea(screen, desktop, {strutAt(bottom, 26, 0, 1279)}), QRect(0, 0, 1280, 774));
}

TEST(WorkAreaTest, TheThickestBarOfAnEdgeCounts) {
  EXPECT_EQ(workArea(screen, desktop, {strutAt(top, 40, 0, 600), strutAt(top, 26, 601, 1279)}),
            QRect(0, 40, 1280, 760));
}

TEST(WorkAreaTest, BarsOfOtherScreensCountWhereTheyAre) {
  const QSize both(2560, 800);
  const QRect second(1280, 0, 1280, 800);
  EXPECT_EQ(workArea(screen, both, {strutAt(top, 26, 1280, 2559)}), screen);
  EXPECT_EQ(workArea(second, both, {strutAt(top, 26, 1280, 2559)}), QRect(1280, 26, 1280, 774));
  // Between the screens: measured from the desktop's edge, across the whole other screen.
  EXPECT_EQ(workArea(screen, both, {strutAt(right, 1280 + 48, 0, 799)}), QRect(0, 0, 1232, 800));
  EXPECT_EQ(workArea(second, both, {strutAt(right, 1280 + 48, 0, 799)}), second);
  EXPECT_EQ(workArea(second, both, {strutAt(left, 1280 + 48, 0, 799)}), QRect(1328, 0, 1232, 800));
  EXPECT_EQ(workArea(screen, both, {strutAt(left, 1280 + 48, 0, 799)}), screen);
}

TEST(WorkAreaTest, LowerScreenHasItsBarAboveTheDesktopsEdge) {
  // The right screen ends 200 pixels above the left one.
  const QSize both(2560, 1000);
  const QRect onTheLeft(0, 0, 1280, 1000);
  const QRect onTheRight(1280, 0, 1280, 800);
  const Strut bar = strutAt(bottom, 200 + 30, 1280, 2559);
  EXPECT_EQ(workArea(onTheRight, both, {bar}), QRect(1280, 0, 1280, 770));
  EXPECT_EQ(workArea(onTheLeft, both, {bar}), onTheLeft);
}

TEST(WorkAreaTest, NonsenseKeepsNothingFree) {
  EXPECT_EQ(workArea(screen, desktop, {{}, {26}, Strut(11, 26), Strut(13, 26)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {Strut(12, UINT32_MAX)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {strutAt(top, 26, 1279, 0)}), screen);
  EXPECT_EQ(workArea(screen, desktop, {strutAt(top, 799, 0, 1279), strutAt(bottom, 799, 0, 1279)}), screen);
}

TEST(WorkAreaTest, OfAKnownSizeIsBesideTheBarOfTheIcon) {
  constexpr QRect at(1280, 100, 1280, 800);
  const auto area = [&](QSize bars, std::optional<QPoint> icon) {
    return workAreaOfSize(at, at.size() - bars,
                          icon ? std::optional(QRect(at.topLeft() + *icon, QSize(1, 1))) : std::nullopt);
  };
  EXPECT_EQ(area({0, 0}, QPoint(1200, 10)), at);
  EXPECT_EQ(area({0, 26}, QPoint(1200, 10)), at.adjusted(0, 26, 0, 0));
  EXPECT_EQ(area({0, 26}, QPoint(1200, 790)), at.adjusted(0, 0, 0, -26));
  EXPECT_EQ(area({48, 0}, QPoint(10, 700)), at.adjusted(48, 0, 0, 0));
  EXPECT_EQ(area({48, 0}, QPoint(1270, 700)), at.adjusted(0, 0, -48, 0));
  // A bar at another edge as well.
  EXPECT_EQ(area({48, 26}, QPoint(1200, 10)), at.adjusted(0, 26, 0, 0));
  EXPECT_EQ(area({48, 26}, QPoint(20, 400)), at.adjusted(48, 0, 0, 0));
  // Nobody knows where the icon is.
  EXPECT_EQ(area({0, 26}, std::nullopt), at.adjusted(0, 0, 0, -26));
  EXPECT_EQ(area({48, 0}, std::nullopt), at.adjusted(0, 0, -48, 0));
  // A compositor that says nonsense.
  EXPECT_EQ(area({-10, -10}, QPoint(5, 5)), at);
}

}  // namespace
}  // namespace mireval
