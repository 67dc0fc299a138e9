#include "ui/pictures/ComputedPicture.h"
#include "ui/pictures/PictureFixture.h"

#include <array>
#include <cmath>

namespace mireval {
namespace {

// The panel's edge, from that of its window.
constexpr double margin = 1;
constexpr double panelWidth = 338;
constexpr double panelPadding = 16;
constexpr double cellWidth = 67.5;
constexpr double modeSpacing = 12;
constexpr double gridHeight = 84;
constexpr double sectionSpacing = 18;
constexpr double cardPadding = 14;
constexpr double barWidth = panelWidth - 2 * panelPadding - 2 * cardPadding;
// What the rounding of colours and of coverage to whole numbers may add up to.
constexpr int rounding = 5;

/// The toolkit draws a curve as short straight lines, off by up to a tenth of a pixel, or a seventh at
/// scale 3.
int roundingOfCurves(const QWindow& window) {
  return window.devicePixelRatio() > 2 ? 37 : 25;
}

/// Light and dark.
class PixelTest : public PictureFixture, public testing::WithParamInterface<bool> {
 protected:
  PixelTest() { m_colorScheme.setDark(isDark()); }

  static bool isDark() { return GetParam(); }
  static QColor ink(double light = 1, double dark = 1) {
    return isDark() ? QColor::fromRgbF(1, 1, 1, static_cast<float>(dark))
                    : QColor::fromRgbF(0, 0, 0, static_cast<float>(light));
  }
  static QColor paper(double opacity = 1) {
    const float value = isDark() ? 0 : 1;
    return QColor::fromRgbF(value, value, value, static_cast<float>(opacity));
  }

  static double scaleOf(const QWindow& window) { return window.devicePixelRatio(); }

  /// An area of the panel, far from its corners.
  static ComputedPicture panelArea(QRectF area, double scale) {
    ComputedPicture computed(area, scale);
    computed.paint(ComputedPicture::rectangle({margin, -1000, panelWidth, 3000}), paper());
    return computed;
  }

  static void paintCard(ComputedPicture& computed, double top) {
    using Picture = ComputedPicture;
    const double left = margin + panelPadding;
    const double right = margin + panelWidth - panelPadding;
    computed.paint(Picture::rectangle({left, top, right - left, 1000}), ink(0.04, 0.05));
    computed.paint(Picture::rectangle({left - 0.5, top, 1, 1000}), ink(0.08, 0.10));
    computed.paint(Picture::rectangle({right - 0.5, top, 1, 1000}), ink(0.08, 0.10));
  }
};

TEST_P(PixelTest, PanelAndItsOutlineAtTheSides) {
  const auto panel = makePanel();
  const double scale = scaleOf(*panel);
  const QImage seen = picture(*panel);
  // Between the mode grid and the card, where nothing else is.
  const double y = margin + panelPadding + gridHeight + sectionSpacing / 2;
  ComputedPicture computed = panelArea({0, y - 3, panelWidth + 2 * margin, 6}, scale);
  for (const double edge : {margin, margin + panelWidth}) {
    computed.paint(ComputedPicture::rectangle({edge - 0.5, 0, 1, 1000}), ink(0.08, 0.10));
  }
  EXPECT_LE(computed.largestDifference(seen), rounding);
}

TEST_P(PixelTest, PanelAndItsOutlineAtTopAndBottom) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  const double bottom = panel->height() - margin;
  for (const double edge : {margin, bottom}) {
    ComputedPicture computed({100, edge - 1, 140, 2}, scaleOf(*panel));
    computed.paint(ComputedPicture::rectangle({0, margin, 1000, bottom - margin}), paper());
    computed.paint(ComputedPicture::rectangle({0, edge - 0.5, 1000, 1}), ink(0.08, 0.10));
    EXPECT_LE(computed.largestDifference(seen), rounding) << edge;
  }
}

TEST_P(PixelTest, CornersAreCutAndFollowTheRadiusAtTheirMiddle) {
  const auto panel = makePanel();
  const double scale = scaleOf(*panel);
  const QImage seen = picture(*panel);
  EXPECT_EQ(qAlpha(seen.pixel(0, 0)), 0);
  EXPECT_EQ(qAlpha(seen.pixel(seen.width() - 1, 0)), 0);
  EXPECT_EQ(qAlpha(seen.pixel(0, seen.height() - 1)), 0);
  EXPECT_EQ(qAlpha(seen.pixel(seen.width() - 1, seen.height() - 1)), 0);
  // On the diagonal the corner is as far in as a circle's: radius * (1 - sqrt(1/2)) along both axes.
  const double cut = margin + 28 * (1 - std::sqrt(0.5));
  const auto diagonal = [&](double distance) {
    const int at = static_cast<int>(distance * scale);
    return qAlpha(seen.pixel(at, at));
  };
  EXPECT_EQ(diagonal(cut - 1.5), 0);
  EXPECT_EQ(diagonal(cut + 1.5), 255);
  // A circle of that radius would still leave the edge alone here, the smoother curve no longer does.
  const auto along = static_cast<int>((margin + 30) * scale);
  const QRgb edge = seen.pixel(along, static_cast<int>(std::ceil(margin * scale)));
  const QRgb straight = seen.pixel(seen.width() / 2, static_cast<int>(std::ceil(margin * scale)));
  EXPECT_NE(edge, straight);
}

TEST_P(PixelTest, UnselectedModesAreCircles) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  for (int mode = 0; mode < 4; ++mode) {
    const QPointF centre(margin + panelPadding + mode * (cellWidth + modeSpacing) + cellWidth / 2,
                         margin + panelPadding + gridHeight / 2);
    const QRectF cell(centre.x() - 36, centre.y() - 42, 72, 84);
    const QRectF label(centre.x() - 24, centre.y() - 24, 48, 48);
    ComputedPicture computed = panelArea(cell, scaleOf(*panel));
    computed.paint(ComputedPicture::circle(centre, cellWidth / 2), ink(0.12, 0.18));
    computed.paint(ComputedPicture::outline(centre, cellWidth / 2), ink(0.08, 0.10));
    // As a whole it lets two hundredths of the paper through.
    computed.paint(ComputedPicture::rectangle(cell), paper(0.02));
    EXPECT_LE(computed.largestDifference(seen, label), roundingOfCurves(*panel)) << mode;
  }
}

TEST_P(PixelTest, SelectedModeIsSolidAndAlmostSoWhenPaused) {
  const auto panel = makePanel();
  const QPointF centre(margin + panelPadding + cellWidth / 2, margin + panelPadding + gridHeight / 2);
  const QRectF cell(centre.x() - 36, centre.y() - 42, 72, 84);
  const QRectF label(centre.x() - 24, centre.y() - 24, 48, 48);
  for (const double opacity : {1.0, 0.98}) {
    press(*panel, "mode-scope");
    ComputedPicture computed = panelArea(cell, scaleOf(*panel));
    computed.paint(ComputedPicture::circle(centre, cellWidth / 2), ink());
    computed.paint(ComputedPicture::outline(centre, cellWidth / 2), ink(0.08, 0.10));
    computed.paint(ComputedPicture::rectangle(cell), paper(1 - opacity));
    EXPECT_LE(computed.largestDifference(picture(*panel), label), roundingOfCurves(*panel)) << opacity;
  }
}

TEST_P(PixelTest, OpacityOfAPausedModeIsThatOfTheWhole) {
  const auto panel = makePanel();
  press(*panel, "mode-scope");
  press(*panel, "mode-scope");
  const double scale = scaleOf(*panel);
  const QImage seen = picture(*panel);
  const auto grey = [&](QPointF place) {
    return qRed(seen.pixel(static_cast<int>(place.x() * scale), static_cast<int>(place.y() * scale)));
  };
  const QPointF symbol = item(*panel, "mode-scope", "symbol")->mapToScene({10, 10});
  // Paper on paper. With the opacity of each part, the circle would show through the symbol.
  EXPECT_EQ(grey(symbol), isDark() ? 0 : 255);
  EXPECT_NEAR(grey(symbol - QPointF(0, 12)), isDark() ? 250 : 5, 1);
}

TEST_P(PixelTest, CardsLieOnThePaper) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  const double top = margin + panelPadding + gridHeight + sectionSpacing;
  // The rows of the title, below the corner and above the buttons; only the sides.
  const double y = item(*panel, "title")->mapToScene({}).y() + 5;
  ComputedPicture computed = panelArea({margin + 2, y, panelWidth - 4, 8}, scaleOf(*panel));
  paintCard(computed, top);
  const double contentLeft = margin + panelPadding + cardPadding - 1;
  EXPECT_LE(computed.largestDifference(seen, {contentLeft, y, barWidth + 2, 8}), rounding);
}

TEST_P(PixelTest, BarIsFourHighAndFilledToTheProgress) {
  const auto panel = makePanel();
  press(*panel, "mode-scope");
  for (const double fraction : {0.0, 0.25, 0.611}) {
    playTo(fraction * m_factory.newest().duration);
    const QPointF place = item(*panel, "progress")->mapToScene({});
    EXPECT_EQ(place.x(), margin + panelPadding + cardPadding);
    ComputedPicture computed = panelArea({place.x() - 4, place.y() - 4, barWidth + 8, 12}, scaleOf(*panel));
    paintCard(computed, 0);
    computed.paint(ComputedPicture::capsule({place.x(), place.y(), barWidth, 4}), ink(0.14, 0.14));
    if (fraction > 0) {
      computed.paint(ComputedPicture::capsule({place.x(), place.y(), barWidth * fraction, 4}), ink());
    }
    EXPECT_LE(computed.largestDifference(picture(*panel)), roundingOfCurves(*panel)) << fraction;
  }
}

TEST_P(PixelTest, TransportButtonsAreCircles) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  double left = margin + panelPadding + cardPadding;
  for (const char* const name : {"transport-previous", "transport-playPause", "transport-next"}) {
    const QPointF place = item(*panel, name)->mapToScene({});
    EXPECT_EQ(place.x(), left);
    const QPointF centre = place + QPointF(17, 17);
    ComputedPicture computed = panelArea({place.x() - 2, place.y() - 2, 38, 38}, scaleOf(*panel));
    paintCard(computed, 0);
    computed.paint(ComputedPicture::circle(centre, 17), ink(0.08, 0.12));
    EXPECT_LE(computed.largestDifference(seen, {centre.x() - 9, centre.y() - 9, 18, 18}), rounding) << name;
    left += 34 + 10;
  }
}

TEST_P(PixelTest, CompositeColours) {
  const auto panel = makePanel();
  const double scale = scaleOf(*panel);
  const QImage seen = picture(*panel);
  const auto grey = [&](QPointF place) {
    const QColor color =
        seen.pixelColor(static_cast<int>(place.x() * scale), static_cast<int>(place.y() * scale));
    EXPECT_EQ(color.red(), color.green());
    EXPECT_EQ(color.red(), color.blue());
    EXPECT_EQ(color.alpha(), 255);
    return color.red();
  };
  EXPECT_EQ(grey({169, 12}), isDark() ? 0 : 255);
  // Black at 0.04 on white is 244.8, white at 0.05 on black 12.75.
  EXPECT_EQ(grey(item(*panel, "position")->mapToScene({-20, 5})), isDark() ? 13 : 245);
  // The divider on the card: black at 0.08 on that, 225.2; white at 0.10, 36.98.
  EXPECT_NEAR(grey(item(*panel, "divider")->mapToScene({100, 0.5})), isDark() ? 37 : 225, 1);
  // A mode's circle at 0.12, with 0.98 for the whole, is 225.0; at 0.18 44.98.
  EXPECT_NEAR(grey({margin + panelPadding + cellWidth / 2, margin + panelPadding + 14}), isDark() ? 45 : 225,
              1);
}

INSTANTIATE_TEST_SUITE_P(Schemes, PixelTest, testing::Bool(), [](const testing::TestParamInfo<bool>& info) {
  return info.param ? "Dark" : "Light";
});

}  // namespace
}  // namespace mireval
