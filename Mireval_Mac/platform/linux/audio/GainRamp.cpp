#include "platform/linux/audio/GainRamp.h"

#include "platform/linux/audio/AudioDecoder.h"

#include <algorithm>
#include <cmath>

namespace mireval {

void GainRamp::changeTo(float gain, std::uint64_t start, std::uint64_t lengthFrames) {
  m_from = at(start);
  m_to = gain;
  m_start = start;
  m_length = lengthFrames;
}

float GainRamp::at(std::uint64_t frame) const {
  if (frame >= m_start + m_length) {
    return m_to;
  }
  const std::uint64_t done = frame - std::min(frame, m_start);
  return m_from + (m_to - m_from) * static_cast<float>(done) / static_cast<float>(m_length);
}

void GainRamp::apply(std::uint64_t position, std::span<const float> samples,
                     std::span<std::int16_t> scaled) const {
  constexpr float fullScale = 32768;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const float sample = samples[i] * at(position + i / AudioDecoder::channelCount) * fullScale;
    scaled[i] = static_cast<std::int16_t>(std::lrint(std::clamp(sample, -fullScale, fullScale - 1)));
  }
}

}  // namespace mireval
