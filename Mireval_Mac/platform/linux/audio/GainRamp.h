#pragma once

#include <cstdint>
#include <span>

namespace mireval {

/// A gain over time: constant, but for short straight ramps that make a change inaudible as such.
class GainRamp {
 public:
  explicit GainRamp(float gain) : m_from(gain), m_to(gain) {}

  /// Goes from the gain at frame `start` to `gain` within `lengthFrames`. Frames before `start` must not be
  /// asked for any more.
  void changeTo(float gain, std::uint64_t start, std::uint64_t lengthFrames);

  /// The gain that all this leads to.
  float target() const { return m_to; }

  float at(std::uint64_t frame) const;

  /// Scales interleaved stereo frames; the first one is frame number `position`.
  void apply(std::uint64_t position, std::span<float> samples) const;

 private:
  float m_from;
  float m_to;
  std::uint64_t m_start = 0;
  std::uint64_t m_length = 0;
};

}  // namespace mireval
