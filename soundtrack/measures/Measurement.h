#pragma once

#include "measures/Clicks.h"
#include "measures/Fingerprint.h"
#include "measures/Levels.h"
#include "measures/Loudness.h"
#include "measures/Recording.h"
#include "measures/Silence.h"

namespace mireval::soundtrack {

/// Everything that is measured of one piece.
struct Measurement {
  double seconds = 0;
  Loudness loudness;
  Levels levels;
  Clicks clicks;
  Silence silence;
  Fingerprint fingerprint;
  /// `Pulse::atPeriod` of a bar.
  double pulseAtBar = 0;

  /// Takes about a second for three minutes of music.
  static Measurement of(const Recording& recording, double secondsPerBar);
};

}  // namespace mireval::soundtrack
