#include "measures/Figures.h"

#include <cmath>
#include <sstream>

namespace mireval::soundtrack {
namespace {

Range loudnessRangeOf(Mood mood) {
  switch (mood) {
    case Mood::relaxation:
      return {2.5, 9};
    case Mood::focus:
      return {3, 8};
    case Mood::creative:
      return {4, 9};
    case Mood::tempo:
      return {3, 7};
  }
  return {};
}

Range pulseOf(Mood mood) {
  switch (mood) {
    case Mood::relaxation:
      return {.most = 0.5};
    case Mood::tempo:
      return {.least = 0.6};
    case Mood::focus:
    case Mood::creative:
      break;
  }
  return {};
}

}  // namespace

std::string Range::text(std::string_view between) const {
  std::ostringstream text;
  if (least == most) {
    text << least;
  } else if (std::isinf(least) && std::isinf(most)) {
    text << "anything";
  } else if (std::isinf(least)) {
    text << "at most " << most;
  } else if (std::isinf(most)) {
    text << "at least " << least;
  } else {
    text << least << between << most;
  }
  return text.str();
}

std::string Figure::text() const {
  const std::string suffix = unit.empty() ? "" : " " + unit;
  std::ostringstream text;
  text << name << ": " << value << suffix << ", allowed " << allowed.text() << suffix;
  return text.str();
}

std::vector<Figure> figuresOf(const Measurement& measurement, Mood mood) {
  const auto& [seconds, loudness, levels, clicks, silence, fingerprint, pulseAtBar] = measurement;
  constexpr double millisecondsPerSecond = 1000;
  return {
      {"loudness", "LUFS", loudness.integrated, {-18.3, -17.7}},
      {"true peak", "dBTP", loudness.truePeak, {.most = -1.5}},
      {"loudness range", "LU", loudness.range, loudnessRangeOf(mood)},
      {"length", "s", seconds, {150, 200}},
      {"clipped samples", "", static_cast<double>(levels.clippedSamples), {0, 0}},
      {"DC offset", "", levels.dcOffset, {.most = 1e-4}},
      {"click ratio", "", clicks.worstRatio, {.most = 3.5}},
      {"silence at the head", "ms", silence.head * millisecondsPerSecond, {.most = 50}},
      {"silence at the tail", "ms", silence.tail * millisecondsPerSecond, {.most = 150}},
      {"silence inside", "s", silence.longestInside, {.most = 0.5}},
      {"correlation of the channels", "", levels.correlation, {0.2, 0.95}},
      {"balance of the channels", "dB", levels.balanceDb, {-2, 2}},
      {"tonal share", "", fingerprint.tonalShare, {.least = 0.4}},
      {"harmonic movement", "", fingerprint.harmonicMovement, {.least = 0.15}},
      {"form", "dB", fingerprint.form, {.least = 2}},
      {"pulse at the bar", "", pulseAtBar, pulseOf(mood)},
  };
}

}  // namespace mireval::soundtrack
