#pragma once

#include "measures/Recording.h"

namespace mireval::soundtrack {

/// How long nothing can be heard. All lengths are in seconds.
struct Silence {
  /// Before the first and after the last sample above -60 dBFS in either channel; the whole length when there
  /// is none.
  double head = 0;
  double tail = 0;
  /// The longest run of tenths of a second whose peak is below -50 dBFS, two seconds at each end left out.
  double longestInside = 0;

  static Silence of(const Recording& recording);
};

}  // namespace mireval::soundtrack
