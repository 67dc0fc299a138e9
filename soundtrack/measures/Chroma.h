#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace mireval::soundtrack {

/// How much each pitch class sounds, over time, and how much of the sound is tones at all.
///
/// From spectra of 16384 samples every 16301 (0.37 s at 44.1 kHz), between 55 and 2000 Hz. A bin holds a tone
/// when its power is more than ten times the median of the 31 bins around it.
struct Chroma {
  using Frame = std::array<double, 12>;

  /// Shares of the twelve pitch classes (equal temperament at 440 Hz, C first) in the amplitudes of the tones
  /// of each frame; they add up to 1, or to 0 where there is no tone.
  std::vector<Frame> frames;
  double secondsPerFrame = 0;
  /// The energy in tones over all energy, 0..1. Music reaches 0.4 and more, noise 0.01.
  double tonalShare = 0;

  static Chroma of(std::span<const float> mono, int sampleRate);
};

/// Half the sum of the absolute differences when `b` is turned up by `semitones`: 0 the same, 1 no pitch
/// class in common.
double difference(const Chroma::Frame& a, const Chroma::Frame& b, std::size_t semitones = 0);

}  // namespace mireval::soundtrack
