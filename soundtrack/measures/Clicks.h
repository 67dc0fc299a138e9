#pragma once

#include "measures/Recording.h"

namespace mireval::soundtrack {

/// The sample-to-sample jump that stands out most from its surroundings. Edits, dropped blocks and voices
/// that are cut off leave such jumps. Silence is assumed before the start and after the end, so a cut there
/// counts.
struct Clicks {
  /// The jump divided by the largest one within about a millisecond on each side. Clean music stays below 3,
  /// a step of 0.05 of full scale reaches 4.
  double worstRatio = 0;
  double worstAtSeconds = 0;

  static Clicks of(const Recording& recording);
};

}  // namespace mireval::soundtrack
