#pragma once

#include "measures/Recording.h"

#include <cstddef>

namespace mireval::soundtrack {

/// Plain sums over all samples.
struct Levels {
  /// The larger absolute mean of the two channels, in full scale.
  double dcOffset = 0;
  /// Samples at or beyond 0.9999 of full scale, in both channels.
  std::size_t clippedSamples = 0;
  /// Pearson's correlation of the channels: 1 mono, 0 unrelated or silent, -1 opposite.
  double correlation = 0;
  /// How much louder the left channel is than the right, dB. 0 when both are silent.
  double balanceDb = 0;

  static Levels of(const Recording& recording);
};

}  // namespace mireval::soundtrack
