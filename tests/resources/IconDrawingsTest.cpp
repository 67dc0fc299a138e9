#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QString>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace mireval {
namespace {

QImage icon(int side) {
  return QImage(QStringLiteral(ICON_THEME "/hicolor/%1x%1/apps/mireval.png").arg(side));
}

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// The contrast ratio of WCAG 2, from 1 (none) to 21 (black and white).
double contrast(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// The colours along a row in which no two neighbours are the same.
std::vector<QColor> runs(const QImage& image, int row) {
  std::vector<QColor> colours;
  for (int x = 0; x < image.width(); ++x) {
    const QColor colour = image.pixelColor(x, row);
    if (colours.empty() || colours.back() != colour) {
      colours.push_back(colour);
    }
  }
  return colours;
}

class IconDrawingsTest : public testing::TestWithParam<int> {};

TEST_P(IconDrawingsTest, HasTheSizeOfItsFolderAndClearCorners) {
  const QImage image = icon(GetParam());
  ASSERT_EQ(image.size(), QSize(GetParam(), GetParam()));
  const int end = GetParam() - 1;
  for (const QPoint corner : {QPoint(0, 0), QPoint(end, 0), QPoint(0, end), QPoint(end, end)}) {
    EXPECT_LT(image.pixelColor(corner).alpha(), 64);
  }
}

TEST_P(IconDrawingsTest, ShowsFourSharpBars) {
  const QImage image = icon(GetParam());
  ASSERT_FALSE(image.isNull());
  // Through the inner bars, where all four are straight.
  const std::vector<QColor> colours = runs(image, GetParam() * 3 / 8);
  ASSERT_EQ(colours.size(), 9);
  const QColor ground = colours[0];
  EXPECT_EQ(ground.alpha(), 255);
  for (std::size_t gap = 2; gap < colours.size(); gap += 2) {
    EXPECT_EQ(colours[gap], ground);
  }
  for (const std::size_t bar : {1, 3, 5}) {
    EXPECT_EQ(colours[bar], QColor(Qt::white));
  }
  EXPECT_NE(colours[7], QColor(Qt::white));
  EXPECT_GT(contrast(colours[7], ground), 3);
}

TEST_P(IconDrawingsTest, StandsOutFromLightAndDarkBars) {
  const QImage image = icon(GetParam());
  ASSERT_FALSE(image.isNull());
  const std::vector<QColor> colours = runs(image, GetParam() * 3 / 8);
  ASSERT_GT(colours.size(), 1);
  // Its ground from a light bar, its marks from a dark one and from the ground.
  EXPECT_GT(contrast(colours[0], QColor(0xF2, 0xF2, 0xF2)), 4.5);
  EXPECT_GT(contrast(colours[0], QColor(0x20, 0x21, 0x24)), 2);
  EXPECT_GT(contrast(colours[1], QColor(0x20, 0x21, 0x24)), 4.5);
  EXPECT_GT(contrast(colours[1], colours[0]), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Sizes, IconDrawingsTest, testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512),
                         [](const auto& info) { return "Of" + std::to_string(info.param) + "Pixels"; });

}  // namespace
}  // namespace mireval
