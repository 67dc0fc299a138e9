#include "ui/PanelPlacement.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

constexpr QSize panel{338, 337};
constexpr QRect screen{0, 0, 1280, 800};

TEST(PanelPlacementTest, BelowABarAtTheTop) {
  const QPoint place = panelPosition({600, 13}, panel, screen, {0, 26, 1280, 774});
  EXPECT_EQ(place, QPoint(600 - 169, 27));
}

TEST(PanelPlacementTest, AboveABarAtTheBottom) {
  const QPoint place = panelPosition({600, 787}, panel, screen, {0, 0, 1280, 774});
  EXPECT_EQ(place, QPoint(600 - 169, 787 - 14 - 337));
}

TEST(PanelPlacementTest, InsideTheAvailableAreaAtBothSides) {
  const QRect available(0, 26, 1280, 774);
  EXPECT_EQ(panelPosition({1270, 13}, panel, screen, available).x(), 1280 - 338);
  EXPECT_EQ(panelPosition({5, 13}, panel, screen, available).x(), 0);
}

TEST(PanelPlacementTest, ClickInsideATallBarIsClearedByTheAvailableArea) {
  EXPECT_EQ(panelPosition({600, 10}, panel, screen, {0, 80, 1280, 720}).y(), 80);
}

TEST(PanelPlacementTest, OnAScreenThatDoesNotBeginAtTheOrigin) {
  const QRect second(-1280, -200, 1280, 800);
  EXPECT_EQ(panelPosition({-20, -190}, panel, second, second), QPoint(-338, -176));
}

TEST(PanelPlacementTest, TooSmallScreenKeepsTheTopLeftCorner) {
  const QRect small(0, 0, 320, 240);
  EXPECT_EQ(panelPosition({300, 230}, panel, small, small), QPoint(0, 0));
}

}  // namespace
}  // namespace mireval
