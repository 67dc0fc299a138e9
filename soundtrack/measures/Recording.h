#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace mireval::soundtrack {

struct RecordingResult;

/// A piece of stereo sound in memory. Samples are in full scale, -1..1 (a decoder may go beyond); both
/// channels have the same length.
struct Recording {
  std::vector<float> left;
  std::vector<float> right;
  /// Frames per second.
  int sampleRate = 44100;

  /// Decodes a whole m4a file, through the decoder of the player.
  static RecordingResult load(const std::filesystem::path& file);

  double seconds() const { return static_cast<double>(left.size()) / sampleRate; }

  /// The mean of both channels.
  std::vector<float> mono() const;

  /// The same, scaled to a mean power of 1; silence stays silence.
  std::vector<float> normalisedMono() const;

  bool operator==(const Recording&) const = default;
};

/// A recording or, if there is none, the reason.
struct RecordingResult {
  std::optional<Recording> recording;
  std::string error;
};

}  // namespace mireval::soundtrack
