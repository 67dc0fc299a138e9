#include "ui/PanelPlacement.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mireval {
namespace {

constexpr QSize panel{338, 337};
constexpr int gap = 4;
constexpr QRect screen{0, 0, 1280, 800};

std::optional<QRect> pixel(int x, int y) {
  return QRect(x, y, 1, 1);
}

/// The panel's rectangle on a single screen.
QRect placed(const std::optional<QRect>& icon, const QRect& workArea, QRect geometry = screen) {
  const PanelPlacement place = placePanel(icon, panel, {{.geometry = geometry, .workArea = workArea}});
  EXPECT_EQ(place.screen, 0U);
  return {place.position, panel};
}

TEST(PanelPlacementTest, BelowABarAtTheTop) {
  const QRect workArea(0, 26, 1280, 774);
  EXPECT_EQ(placed(pixel(600, 13), workArea).topLeft(), QPoint(600 - 169, 26 + gap));
  // Wherever on the icon the click was.
  EXPECT_EQ(placed(pixel(600, 0), workArea).top(), 26 + gap);
  EXPECT_EQ(placed(pixel(600, 25), workArea).top(), 26 + gap);
}

TEST(PanelPlacementTest, AboveABarAtTheBottom) {
  const QRect workArea(0, 0, 1280, 774);
  EXPECT_EQ(placed(pixel(600, 787), workArea).topLeft(), QPoint(600 - 169, 774 - gap - 337));
  EXPECT_EQ(placed(pixel(600, 774), workArea).bottom(), 773 - gap);
  EXPECT_EQ(placed(pixel(600, 799), workArea).bottom(), 773 - gap);
}

TEST(PanelPlacementTest, BesideABarAtTheLeft) {
  const QRect workArea(48, 0, 1232, 800);
  EXPECT_EQ(placed(pixel(20, 400), workArea).topLeft(), QPoint(48 + gap, 400 - 168));
}

TEST(PanelPlacementTest, BesideABarAtTheRight) {
  const QRect workArea(0, 0, 1232, 800);
  EXPECT_EQ(placed(pixel(1260, 400), workArea).topLeft(), QPoint(1232 - gap - 338, 400 - 168));
}

TEST(PanelPlacementTest, CentredOnAnIconOfKnownSize) {
  EXPECT_EQ(placed(QRect(589, 2, 22, 22), {0, 26, 1280, 774}).topLeft(), QPoint(599 - 169, 26 + gap));
}

TEST(PanelPlacementTest, IconInACornerKeepsThePanelBesideItsBar) {
  const QRect belowTop(0, 26, 1280, 774);
  EXPECT_EQ(placed(pixel(1275, 13), belowTop).topLeft(), QPoint(1280 - gap - 338, 26 + gap));
  EXPECT_EQ(placed(pixel(3, 13), belowTop).topLeft(), QPoint(gap, 26 + gap));
  const QRect rightOfLeft(48, 0, 1232, 800);
  EXPECT_EQ(placed(pixel(20, 3), rightOfLeft).topLeft(), QPoint(48 + gap, gap));
  EXPECT_EQ(placed(pixel(20, 797), rightOfLeft).topLeft(), QPoint(48 + gap, 800 - gap - 337));
}

TEST(PanelPlacementTest, BarsAtSeveralEdges) {
  // The icon's bar counts, the others only keep the panel away.
  const QRect workArea(48, 26, 1180, 700);
  EXPECT_EQ(placed(pixel(60, 13), workArea).topLeft(), QPoint(48 + gap, 26 + gap));
  EXPECT_EQ(placed(pixel(20, 720), workArea).topLeft(), QPoint(48 + gap, 726 - gap - 337));
  EXPECT_EQ(placed(pixel(1250, 300), workArea).topLeft(), QPoint(1228 - gap - 338, 300 - 168));
  EXPECT_EQ(placed(pixel(1250, 760), workArea).topLeft(), QPoint(1228 - gap - 338, 726 - gap - 337));
}

TEST(PanelPlacementTest, BarThatTheDesktopDoesNotTellOf) {
  EXPECT_EQ(placed(pixel(600, 10), screen).topLeft(), QPoint(600 - 169, 10 + 14 + 1 + gap));
  EXPECT_EQ(placed(pixel(600, 789), screen).topLeft(), QPoint(600 - 169, 789 - 14 - gap - 337));
  EXPECT_EQ(placed(pixel(10, 400), screen).topLeft(), QPoint(10 + 14 + 1 + gap, 400 - 168));
  EXPECT_EQ(placed(pixel(1269, 400), screen).topLeft(), QPoint(1269 - 14 - gap - 338, 400 - 168));
  // An icon of known size is not covered, though.
  EXPECT_EQ(placed(QRect(589, 5, 40, 40), screen).top(), 45 + gap);
  EXPECT_EQ(placed(QRect(589, 750, 40, 40), screen).bottom(), 749 - gap);
  EXPECT_EQ(placed(QRect(4, 400, 40, 40), screen).left(), 44 + gap);
  EXPECT_EQ(placed(QRect(1236, 400, 40, 40), screen).right(), 1235 - gap);
}

TEST(PanelPlacementTest, InACornerOfAnUnknownBarItIsTakenForAHorizontalOne) {
  EXPECT_EQ(placed(pixel(1275, 13), screen).topLeft(), QPoint(1280 - gap - 338, 13 + 14 + 1 + gap));
  EXPECT_EQ(placed(pixel(5, 780), screen).topLeft(), QPoint(gap, 780 - 14 - gap - 337));
}

TEST(PanelPlacementTest, EntryOfAMenuBelowTheBarCountsAsTheBar) {
  EXPECT_EQ(placed(pixel(1000, 60), {0, 27, 1280, 773}).topLeft(), QPoint(1000 - 169, 27 + gap));
}

TEST(PanelPlacementTest, FarFromAnyBarThePanelIsBesideThePoint) {
  EXPECT_EQ(placed(pixel(640, 300), {0, 27, 1280, 773}).top(), 300 + 14 + 1 + gap);
}

TEST(PanelPlacementTest, WithoutAnIconWhereIconsUsuallyAre) {
  EXPECT_EQ(placed(std::nullopt, {0, 26, 1280, 774}).topLeft(), QPoint(1280 - gap - 338, 26 + gap));
  EXPECT_EQ(placed(std::nullopt, {0, 0, 1280, 774}).topLeft(), QPoint(1280 - gap - 338, 774 - gap - 337));
  EXPECT_EQ(placed(std::nullopt, screen).topLeft(), QPoint(1280 - gap - 338, 40));
  EXPECT_EQ(placed(std::nullopt, {0, 0, 1232, 800}).topLeft(), QPoint(1232 - gap - 338, 40));
}

TEST(PanelPlacementTest, ScreenThatJustHoldsThePanel) {
  const QRect exact(0, 0, 338, 363);
  EXPECT_EQ(placed(pixel(330, 13), {0, 26, 338, 337}, exact).topLeft(), QPoint(0, 26));
  const QRect nearly(0, 0, 342, 366);
  EXPECT_EQ(placed(pixel(330, 13), {0, 26, 342, 340}, nearly).topLeft(), QPoint(2, 28));
}

TEST(PanelPlacementTest, TooSmallScreenKeepsTheTopLeftCorner) {
  const QRect small(0, 0, 320, 240);
  EXPECT_EQ(placed(pixel(300, 230), {10, 20, 310, 200}, small).topLeft(), QPoint(10, 20));
}

TEST(PanelPlacementTest, OnTheScreenOfTheIcon) {
  const std::vector<ScreenArea> screens{
      {.geometry = {0, 0, 1280, 800}, .workArea = {0, 0, 1280, 800}},
      {.geometry = {1280, 0, 1920, 1080}, .workArea = {1280, 30, 1920, 1050}},
      {.geometry = {-1024, -200, 1024, 768}, .workArea = {-1024, -200, 1024, 738}}};
  EXPECT_EQ(placePanel(pixel(2000, 10), panel, screens),
            (PanelPlacement{.screen = 1, .position = {2000 - 169, 30 + gap}}));
  // Not over the edge between two screens.
  EXPECT_EQ(placePanel(pixel(1285, 10), panel, screens),
            (PanelPlacement{.screen = 1, .position = {1280 + gap, 30 + gap}}));
  EXPECT_EQ(placePanel(pixel(1275, 10), panel, screens),
            (PanelPlacement{.screen = 0, .position = {1280 - gap - 338, 10 + 14 + 1 + gap}}));
  EXPECT_EQ(placePanel(pixel(-500, 560), panel, screens),
            (PanelPlacement{.screen = 2, .position = {-500 - 169, 538 - gap - 337}}));
}

TEST(PanelPlacementTest, PlaceOnNoScreenGoesToTheNearest) {
  const std::vector<ScreenArea> screens{{.geometry = {0, 0, 1280, 800}, .workArea = {0, 0, 1280, 800}},
                                        {.geometry = {1280, 0, 1280, 800}, .workArea = {1280, 0, 1280, 800}}};
  EXPECT_EQ(placePanel(pixel(4000, 10), panel, screens),
            (PanelPlacement{.screen = 1, .position = {2560 - gap - 338, gap}}));
  EXPECT_EQ(placePanel(pixel(-4000, -4000), panel, screens).screen, 0U);
}

TEST(PanelPlacementTest, ScreensOfUnequalScale) {
  // Two screens of 2560 by 1600 pixels; the left one shows everything twice as large.
  const std::vector<ScreenArea> screens{
      {.geometry = {0, 0, 1280, 800}, .workArea = {0, 24, 1280, 776}, .scale = 2},
      {.geometry = {2560, 0, 2560, 1600}, .workArea = {2560, 48, 2560, 1552}},
      {.geometry = {5120, -300, 1707, 1067}, .workArea = {5120, -268, 1707, 1035}, .scale = 1.5}};
  EXPECT_EQ(placePanel(pixel(1200, 20), panel, screens),
            (PanelPlacement{.screen = 0, .position = {600 - 169, 24 + gap}}));
  EXPECT_EQ(placePanel(pixel(2550, 20), panel, screens),
            (PanelPlacement{.screen = 0, .position = {1280 - gap - 338, 24 + gap}}));
  EXPECT_EQ(placePanel(pixel(3000, 20), panel, screens),
            (PanelPlacement{.screen = 1, .position = {3000 - 169, 48 + gap}}));
  EXPECT_EQ(placePanel(pixel(5120 + 900, -280), panel, screens),
            (PanelPlacement{.screen = 2, .position = {5120 + 600 - 169, -268 + gap}}));
}

TEST(PanelPlacementTest, AlwaysWholeOnOneScreenAndNeverOverTheBar) {
  const std::vector<ScreenArea> screens{
      {.geometry = {-1024, -300, 1024, 768}, .workArea = {-984, -300, 984, 768}},
      {.geometry = {0, 0, 1280, 800}, .workArea = {0, 26, 1280, 726}, .scale = 2},
      {.geometry = {2560, 700, 1440, 900}, .workArea = {2560, 700, 1380, 900}, .scale = 1.25}};
  int checked = 0;
  for (int x = -1200; x < 4700; x += 37) {
    for (int y = -400; y < 2000; y += 31) {
      const PanelPlacement place = placePanel(pixel(x, y), panel, screens);
      ASSERT_TRUE(screens.at(place.screen).workArea.contains(QRect(place.position, panel)))
          << x << ", " << y << " gives " << place.position.x() << ", " << place.position.y();
      ++checked;
    }
  }
  EXPECT_GT(checked, 10000);
}

}  // namespace
}  // namespace mireval
