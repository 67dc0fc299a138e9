#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace mireval::test {

/// Interleaved stereo samples, with what tests measure in them.
struct Recording {
  static constexpr int sampleRate = 44100;

  std::vector<float> samples;

  std::size_t frames() const { return samples.size() / 2; }
  double seconds() const { return static_cast<double>(frames()) / sampleRate; }

  /// The stretch from `start` on, both in seconds; cut to what there is.
  Recording part(double start, double length) const;
  /// Without the silence before and after the sound.
  Recording trimmed() const;

  /// One side as samples of its own; 0 is left, 1 is right.
  std::vector<float> channel(int index) const;

  /// Root mean square of one side in decibels of full scale; -200 for silence.
  double levelDb(int channel = 0) const;
  double peak() const;
  /// Share of one side's energy that lies at this frequency: near 1 for a pure tone.
  double shareOfTone(double frequency, int channel = 0) const;
  /// The longest run of frames below -80 dB, in seconds, inside `trimmed()`.
  double longestSilence() const;
};

}  // namespace mireval::test
