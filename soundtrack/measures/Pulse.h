#pragma once

#include "measures/Recording.h"

#include <cstddef>
#include <vector>

namespace mireval::soundtrack {

/// How regularly something begins to sound. Onsets are the mean rise of 24 mel bands (40..12000 Hz, spectra
/// of 1024 samples, the sound at a mean power of 1) from one hundredth of a second to the next, without their
/// mean over a second.
class Pulse {
 public:
  explicit Pulse(const Recording& recording);

  /// The autocorrelation of the onsets at this period, give or take 1.5 %: 1 repeats exactly, 0 not at all.
  double atPeriod(double seconds) const;

 private:
  double autocorrelation(std::size_t lag) const;

  /// One each hundredth of a second.
  std::vector<double> m_onsets;
};

}  // namespace mireval::soundtrack
