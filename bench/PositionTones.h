#pragma once

#include "AudioFiles.h"
#include "Recording.h"

#include <cstddef>
#include <filesystem>

namespace mireval::bench {

/// A tone on the left and a slightly higher one on the right. Their phases tell the position in the track,
/// to a fraction of a frame, and unambiguously within a tenth of a second.
class PositionTones {
 public:
  /// In frames of the recording.
  struct Interruptions {
    std::size_t longest = 0;
    /// The sum of all interruptions.
    std::size_t missed = 0;
  };

  static std::filesystem::path makeFile(const test::AudioFiles& files, double seconds);

  /// Counts from the first ten milliseconds of the tones up to the end of the recording, or the whole
  /// recording if it never holds them. An interruption is as long as the silence, or as the stretch of the
  /// track that is left out or repeated, whichever is longer: silence delays the track or stands in its
  /// place. Other sound than the tones counts like silence.
  static Interruptions interruptionsIn(const test::Recording& recording);
};

}  // namespace mireval::bench
