#pragma once

#include "platform/linux/audio/AudioDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace mireval {

/// A gain over time. It is constant except for a short straight ramp, so that a change makes no click.
class GainRamp {
 public:
  explicit GainRamp(float gain) : m_from(gain), m_to(gain) {}

  /// Goes from the gain at frame `start` to `gain` within `lengthFrames`. Afterwards frames before `start`
  /// must not be asked for.
  void changeTo(float gain, std::uint64_t start, std::uint64_t lengthFrames) {
    m_from = at(start);
    m_to = gain;
    m_start = start;
    m_length = lengthFrames;
  }

  float at(std::uint64_t frame) const {
    if (frame >= m_start + m_length) {
      return m_to;
    }
    const std::uint64_t done = frame - std::min(frame, m_start);
    return m_from + (m_to - m_from) * static_cast<float>(done) / static_cast<float>(m_length);
  }

  /// Scales interleaved stereo frames, the first of which is frame number `position`, to samples of 16 bits.
  /// What is too loud for them is cut off. `scaled` must be as long as `samples` at least.
  void apply(std::uint64_t position, std::span<const float> samples, std::span<std::int16_t> scaled) const {
    constexpr float fullScale = 32768;
    for (std::size_t i = 0; i < samples.size(); ++i) {
      const float sample = samples[i] * at(position + i / AudioDecoder::channelCount) * fullScale;
      scaled[i] = static_cast<std::int16_t>(std::lrint(std::clamp(sample, -fullScale, fullScale - 1)));
    }
  }

 private:
  float m_from;
  float m_to;
  std::uint64_t m_start = 0;
  std::uint64_t m_length = 0;
};

}  // namespace mireval
