#include "ui/PanelShape.h"

#include <gtest/gtest.h>

#include <QTransform>

#include <cmath>

namespace mireval {
namespace {

constexpr double margin = 1;
constexpr double cornerRadius = 28;

/// The scale of the screen.
class PanelShapeTest : public testing::TestWithParam<double> {
 protected:
  const double m_scale = GetParam();
  const QSize m_window = QSize(340, 341) * m_scale;
  const QRegion m_shape = panelShape(m_window, m_scale, margin, cornerRadius);

  /// How many pixels are missing on the left of the row.
  int inset(int row) const {
    int inset = 0;
    while (inset < m_window.width() && !m_shape.contains(QPoint(inset, row))) {
      ++inset;
    }
    return inset;
  }
};

TEST_P(PanelShapeTest, CornersAreMirrorImages) {
  QRegion mirrored;
  QRegion upsideDown;
  for (const QRect& part : m_shape) {
    mirrored += QRect(m_window.width() - part.x() - part.width(), part.y(), part.width(), part.height());
    upsideDown += QRect(part.x(), m_window.height() - part.y() - part.height(), part.width(), part.height());
  }
  EXPECT_EQ(mirrored, m_shape);
  EXPECT_EQ(upsideDown, m_shape);
}

TEST_P(PanelShapeTest, BeginsWhereTheOutlineDoes) {
  // Half of the line, which is one point wide, is outside of the panel.
  const double edge = (margin - 0.5) * m_scale;
  EXPECT_EQ(inset(m_window.height() / 2), std::ceil(edge - 0.5));
  EXPECT_EQ(m_shape.boundingRect().top(), std::ceil(edge - 0.5));
}

TEST_P(PanelShapeTest, FollowsTheRadiusOnTheDiagonal) {
  int cut = 0;
  while (!m_shape.contains(QPoint(cut, cut))) {
    ++cut;
  }
  const double expected = (margin - 0.5 + (cornerRadius + 0.5) * (1 - std::sqrt(0.5))) * m_scale;
  EXPECT_NEAR(cut, expected, 0.51);
}

TEST_P(PanelShapeTest, StepsAreSinglePixels) {
  // Around the diagonal each row is one or two pixels longer than the one above it.
  const auto middle = static_cast<int>((margin + cornerRadius * (1 - std::sqrt(0.5))) * m_scale);
  int singleSteps = 0;
  for (int row = middle - 3; row < middle + 3; ++row) {
    const int step = inset(row) - inset(row + 1);
    EXPECT_LE(step, 2) << row;
    singleSteps += step == 1 ? 1 : 0;
  }
  EXPECT_GE(singleSteps, 2);
}

INSTANTIATE_TEST_SUITE_P(, PanelShapeTest, testing::Values(1, 1.25, 1.5, 2, 3));

}  // namespace
}  // namespace mireval
