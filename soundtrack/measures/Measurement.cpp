#include "measures/Measurement.h"

#include "measures/Pulse.h"

namespace mireval::soundtrack {

Measurement Measurement::of(const Recording& recording, double secondsPerBar) {
  return {recording.seconds(),
          Loudness::of(recording),
          Levels::of(recording),
          Clicks::of(recording),
          Silence::of(recording),
          Fingerprint::of(recording),
          Pulse(recording).atPeriod(secondsPerBar)};
}

}  // namespace mireval::soundtrack
