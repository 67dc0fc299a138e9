#pragma once

#include "measures/Recording.h"

#include <vector>

namespace mireval::soundtrack {

/// Loudness by EBU R 128 (ITU-R BS.1770). Silence has no loudness: -infinity.
struct Loudness {
  /// LUFS.
  double integrated = 0;
  /// LU, by EBU Tech 3342.
  double range = 0;
  /// The larger true peak of both channels, four times oversampled, dBTP.
  double truePeak = 0;
  /// The loudness of the last three seconds, LUFS, at every whole second from the third on.
  std::vector<double> shortTerm;

  static Loudness of(const Recording& recording);
};

}  // namespace mireval::soundtrack
