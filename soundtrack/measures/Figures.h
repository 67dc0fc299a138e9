#pragma once

#include "library/Mood.h"
#include "measures/Measurement.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace mireval::soundtrack {

/// The range that a figure may have, both ends included.
struct Range {
  double least = -std::numeric_limits<double>::infinity();
  double most = std::numeric_limits<double>::infinity();

  bool contains(double value) const { return value >= least && value <= most; }

  /// For example "3..7", "at least 0.4" or "anything".
  std::string text(std::string_view between = "..") const;
};

/// One number by which a piece is judged.
struct Figure {
  std::string name;
  /// Empty for a pure number.
  std::string unit;
  double value = 0;
  Range allowed;

  bool isMet() const { return allowed.contains(value); }

  /// For example "loudness range: 1.2 LU, allowed 3..7 LU".
  std::string text() const;
};

/// The figures of a piece, with the limits of its mood. All limits of single pieces are here, and only here.
std::vector<Figure> figuresOf(const Measurement& measurement, Mood mood);

/// The mean length of the pieces of a mood, seconds.
inline constexpr Range meanLengthOfAMood{170, 185};

/// `distance` of any two pieces of a mood.
inline constexpr Range distanceWithinAMood{6};

/// All files together, bytes.
inline constexpr std::uintmax_t largestSoundtrack = 190'000'000;

}  // namespace mireval::soundtrack
