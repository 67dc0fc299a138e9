#include "ui/pictures/Ink.h"
#include "ui/pictures/PictureFixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace mireval {
namespace {

constexpr std::array modes{"mode-scope", "mode-metronome", "mode-sparkles", "mode-wind"};
constexpr std::array transportButtons{"transport-previous", "transport-playPause", "transport-next"};
constexpr double circleRadius = 67.5 / 2;
/// Inside of its outline.
constexpr double innerRadius = circleRadius - 0.5;
/// Below a mode's centre: symbols end above it, titles begin below it.
constexpr double titlesBegin = 3;

/// Light and dark.
class InkTest : public PictureFixture, public testing::WithParamInterface<bool> {
 protected:
  InkTest() { m_colorScheme.setDark(GetParam()); }

  /// Which a symbol may be off the axis. Where a point is a pixel, it stands on whole pixels; the rest is
  /// rounding.
  static double allowedOffset(const QWindow& window) { return window.devicePixelRatio() > 1 ? 0.05 : 0.255; }

  QPointF centreOf(const PanelWindow& panel, const char* button) const {
    const QQuickItem* const found = item(panel, button);
    return found->mapToScene(QRectF({}, found->size()).center());
  }

  /// What the ink in a button's disc is where the condition holds for the place relative to the centre.
  Ink inkIn(const PanelWindow& panel, const QImage& seen, const char* button, double radius,
            const std::function<bool(QPointF)>& condition, bool inverted = false) const {
    const QPointF centre = centreOf(panel, button);
    const auto area = [&](QPointF place) {
      const QPointF offset = place - centre;
      return std::hypot(offset.x(), offset.y()) < radius && condition(offset);
    };
    const QRectF bounds(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    return {seen, panel.devicePixelRatio(),        bounds,
            area, centre - QPointF(0, radius - 2), GetParam() == inverted ? 0 : 255};
  }

  Ink symbolOf(const PanelWindow& panel, const QImage& seen, const char* mode, bool inverted = false) const {
    return inkIn(
        panel, seen, mode, innerRadius - 1.5, [](QPointF offset) { return offset.y() < titlesBegin; },
        inverted);
  }

  Ink titleOf(const PanelWindow& panel, const QImage& seen, const char* mode) const {
    return inkIn(panel, seen, mode, innerRadius - 1,
                 [](QPointF offset) { return offset.y() >= titlesBegin; });
  }

  Ink transportSymbolOf(const PanelWindow& panel, const QImage& seen, const char* button) const {
    return inkIn(panel, seen, button, 14, [](QPointF) { return true; });
  }
};

TEST_P(InkTest, SymbolsAndTitlesShareTheAxisOfTheirCircle) {
  const auto panel = makePanel();
  for (const char* const language : {"en", "zh-Hans", "zh-Hant", "ja"}) {
    speak(language);
    const QImage seen = picture(*panel);
    for (const char* const mode : modes) {
      const double axis = centreOf(*panel, mode).x();
      EXPECT_NEAR(symbolOf(*panel, seen, mode).centroid().x(), axis, allowedOffset(*panel))
          << language << mode;
      // As much air on the left as on the right. The centroid of letters depends on which of them are bold.
      EXPECT_NEAR(titleOf(*panel, seen, mode).box().center().x(), axis, 0.5 / panel->devicePixelRatio())
          << language << mode;
    }
  }
}

TEST_P(InkTest, PlaySymbolOfAPausedModeIsOnTheAxis) {
  const auto panel = makePanel();
  for (const char* const mode : modes) {
    press(*panel, mode);
    press(*panel, mode);
    const Ink symbol = symbolOf(*panel, picture(*panel), mode, true);
    EXPECT_NEAR(symbol.centroid().x(), centreOf(*panel, mode).x(), allowedOffset(*panel)) << mode;
  }
}

TEST_P(InkTest, TransportSymbolsAreInTheMiddleOfTheirButtons) {
  const auto panel = makePanel();
  for (const bool playing : {false, true}) {
    if (playing) {
      press(*panel, "transport-playPause");
    }
    const QImage seen = picture(*panel);
    for (const char* const button : transportButtons) {
      const QPointF offset = transportSymbolOf(*panel, seen, button).centroid() - centreOf(*panel, button);
      EXPECT_LE(std::abs(offset.x()), allowedOffset(*panel)) << button << playing;
      EXPECT_LE(std::abs(offset.y()), allowedOffset(*panel)) << button << playing;
    }
  }
}

TEST_P(InkTest, ModeSymbolsHaveTheSameWeightAndSize) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  std::array<double, modes.size()> amounts{};
  std::ranges::transform(modes, amounts.begin(),
                         [&](const char* mode) { return symbolOf(*panel, seen, mode).amount(); });
  EXPECT_LE(std::ranges::max(amounts), 1.15 * std::ranges::min(amounts));
  for (const char* const mode : modes) {
    const QSizeF size = symbolOf(*panel, seen, mode).box().size();
    EXPECT_NEAR(std::max(size.width(), size.height()), 17.5, 1.6) << mode;
  }
}

TEST_P(InkTest, StrokesAreAnEighthOfTheFontSize) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  const double scale = panel->devicePixelRatio();
  // Across the longest line of the wind, which is level.
  const QPointF wind = item(*panel, "mode-wind", "symbol")->mapToScene({5, 10});
  double covered = 0;
  symbolOf(*panel, seen, "mode-wind").forEach([&](QPointF place, double coverage) {
    const bool across =
        std::floor(place.x() * scale) == std::floor(wind.x() * scale) && std::abs(place.y() - wind.y()) < 2.5;
    covered += across ? coverage / scale : 0;
  });
  EXPECT_NEAR(covered, 16 / 8.0, 0.1);
  // Through the upper arm of a chevron, which rises by 45 degrees.
  for (const char* const chevron : {"transport-previous", "transport-next"}) {
    const double row = std::floor((centreOf(*panel, chevron).y() - 2) * scale);
    covered = 0;
    transportSymbolOf(*panel, seen, chevron).forEach([&](QPointF place, double coverage) {
      covered += std::floor(place.y() * scale) == row ? coverage / scale : 0;
    });
    EXPECT_NEAR(covered / std::numbers::sqrt2, 13 / 8.0, 0.1) << chevron;
  }
}

TEST_P(InkTest, PartsOfSymbolsStayApartAndNoneVanishes) {
  const auto panel = makePanel();
  const QImage seen = picture(*panel);
  struct Expected {
    const char* mode;
    std::size_t parts;
  };
  for (const Expected& expected : {Expected{"mode-scope", 1}, Expected{"mode-metronome", 1},
                                   Expected{"mode-sparkles", 3}, Expected{"mode-wind", 3}}) {
    const auto parts = symbolOf(*panel, seen, expected.mode).parts();
    EXPECT_EQ(parts.size(), expected.parts) << expected.mode;
    for (const Ink::Part& part : parts) {
      EXPECT_GE(part.largestCoverage, 0.9) << expected.mode;
      const double area = part.pixels / (panel->devicePixelRatio() * panel->devicePixelRatio());
      EXPECT_GE(area, 7) << expected.mode;
    }
  }
}

TEST_P(InkTest, TitlesKeepTwoPointsFromTheOutline) {
  const auto panel = makePanel();
  const double halfPixel = 0.5 / panel->devicePixelRatio();
  for (const char* const language : {"en", "zh-Hans", "zh-Hant", "ja"}) {
    speak(language);
    const QImage seen = picture(*panel);
    for (const char* const mode : modes) {
      const QPointF centre = centreOf(*panel, mode);
      double room = innerRadius;
      titleOf(*panel, seen, mode).forEach([&](QPointF place, double coverage) {
        const QPointF offset = place - centre;
        const double chord = std::sqrt(innerRadius * innerRadius - offset.y() * offset.y());
        room =
            coverage < 0.05
                ? room
                : std::min(room, chord - std::abs(offset.x()) - (coverage - 0.5) / panel->devicePixelRatio());
      });
      EXPECT_GE(room, 2 - halfPixel) << language << mode;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Schemes, InkTest, testing::Bool(), [](const testing::TestParamInfo<bool>& info) {
  return info.param ? "Dark" : "Light";
});

}  // namespace
}  // namespace mireval
