#include "ui/pictures/PictureFixture.h"

#include <cmath>
#include <numbers>

namespace mireval {
namespace {

constexpr int reach = 16;
constexpr double blur = 5;
constexpr double drop = 2;
/// Between the window's edge and the panel's.
constexpr double inset = reach + 1;

/// Light and dark.
class ShadowTest : public PictureFixture, public testing::WithParamInterface<bool> {
 protected:
  ShadowTest() { m_colorScheme.setDark(GetParam()); }

  /// 0...255, at that distance outside of a long edge.
  static double expectedAlpha(double distance) {
    return 255 * (GetParam() ? 0.28 : 0.1) * 0.5 * std::erfc(distance / (blur * std::numbers::sqrt2));
  }
};

TEST_P(ShadowTest, FadesOutAroundThePanel) {
  const auto panel = makePanel({400, 10, 1, 1}, Shadow::with);
  const QImage seen = picture(*panel);
  const double scale = panel->devicePixelRatio();
  const int right = seen.width() - 1;
  const int bottom = seen.height() - 1;
  // The outermost pixel of the outline is the shadow's, too.
  for (int pixel = 0; pixel < std::floor((inset - 0.5) * scale); ++pixel) {
    const double distance = inset - (pixel + 0.5) / scale;
    EXPECT_NEAR(qAlpha(seen.pixel(pixel, bottom / 2)), expectedAlpha(distance), 1) << pixel;
    EXPECT_EQ(seen.pixel(right - pixel, bottom / 2), seen.pixel(pixel, bottom / 2)) << pixel;
    EXPECT_NEAR(qAlpha(seen.pixel(right / 2, pixel)), expectedAlpha(distance + drop), 1) << pixel;
    EXPECT_NEAR(qAlpha(seen.pixel(right / 2, bottom - pixel)), expectedAlpha(distance - drop), 1) << pixel;
  }
}

TEST_P(ShadowTest, IsBlackAndHasNoEdges) {
  const auto panel = makePanel({400, 10, 1, 1}, Shadow::with);
  const QImage seen = picture(*panel);
  const auto outside = static_cast<int>((inset - 2) * panel->devicePixelRatio());
  const QRect inner = seen.rect().marginsRemoved(QMargins() + outside);
  const auto steepest = static_cast<int>(std::ceil(expectedAlpha(-0.5) - expectedAlpha(0.5))) + 1;
  for (int y = 1; y < seen.height(); ++y) {
    for (int x = 1; x < seen.width(); ++x) {
      const QRgb pixel = seen.pixel(x, y);
      if (inner.contains(x, y)) {
        continue;
      }
      ASSERT_EQ(pixel & RGB_MASK, 0U) << x << "," << y;
      ASSERT_LE(std::abs(qAlpha(pixel) - qAlpha(seen.pixel(x - 1, y))), steepest) << x << "," << y;
      ASSERT_LE(std::abs(qAlpha(pixel) - qAlpha(seen.pixel(x, y - 1))), steepest) << x << "," << y;
    }
  }
  EXPECT_EQ(qAlpha(seen.pixel(0, 0)), 0);
  EXPECT_EQ(qAlpha(seen.pixel(seen.width() - 1, seen.height() - 1)), 0);
}

TEST_P(ShadowTest, LeavesThePanelAlone) {
  const auto plain = makePanel();
  const QImage without = picture(*plain);
  const auto shaded = makePanel({400, 10, 1, 1}, Shadow::with);
  const auto around = static_cast<int>(reach * shaded->devicePixelRatio());
  const QImage with = picture(*shaded);
  const QImage inner = with.copy(with.rect().marginsRemoved(QMargins() + around));
  ASSERT_EQ(inner.size(), without.size());
  int compared = 0;
  for (int y = 0; y < inner.height(); ++y) {
    for (int x = 0; x < inner.width(); ++x) {
      if (qAlpha(without.pixel(x, y)) == 255) {
        ++compared;
        ASSERT_EQ(inner.pixel(x, y), without.pixel(x, y)) << x << "," << y;
      }
    }
  }
  EXPECT_GT(compared, inner.width() * inner.height() * 9 / 10);
}

TEST_P(ShadowTest, FollowsTheScheme) {
  const auto panel = makePanel({400, 10, 1, 1}, Shadow::with);
  const QImage before = picture(*panel);
  m_colorScheme.setDark(!GetParam());
  const QImage after = picture(*panel);
  const QPoint below(before.width() / 2, before.height() - qFloor((inset - 1) * panel->devicePixelRatio()));
  EXPECT_NE(qAlpha(after.pixel(below)), qAlpha(before.pixel(below)));
}

INSTANTIATE_TEST_SUITE_P(Schemes, ShadowTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace mireval
