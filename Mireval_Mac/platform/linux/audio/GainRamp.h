#pragma once

#include <cstdint>
#include <span>

namespace mireval {

/// A gain over time. It is constant except for a short straight ramp, so that a change makes no click.
class GainRamp {
 public:
  explicit GainRamp(float gain) : m_from(gain), m_to(gain) {}

  /// Goes from the gain at frame `start` to `gain` within `lengthFrames`. Afterwards frames before `start`
  /// must not be asked for.
  void changeTo(float gain, std::uint64_t start, std::uint64_t lengthFrames);

  /// The gain at the end of the ramp.
  float target() const { return m_to; }

  float at(std::uint64_t frame) const;

  /// Scales interleaved stereo frames, the first of which is frame number `position`, to samples of 16 bits.
  /// What is too loud for them is cut off. `scaled` must be as long as `samples` at least.
  void apply(std::uint64_t position, std::span<const float> samples, std::span<std::int16_t> scaled) const;

 private:
  float m_from;
  float m_to;
  std::uint64_t m_start = 0;
  std::uint64_t m_length = 0;
};

}  // namespace mireval
