#include "platform/linux/audio/GainRamp.h"

#include "platform/linux/audio/AudioDecoder.h"

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
  if (frame <= m_start) {
    return m_from;
  }
  return m_from + (m_to - m_from) * static_cast<float>(frame - m_start) / static_cast<float>(m_length);
}

void GainRamp::apply(std::uint64_t position, std::span<float> samples) const {
  constexpr std::size_t channels = AudioDecoder::channelCount;
  std::size_t i = 0;
  for (; i < samples.size() && position < m_start + m_length; i += channels, ++position) {
    const float gain = at(position);
    for (float& sample : samples.subspan(i, channels)) {
      sample *= gain;
    }
  }
  for (float& sample : samples.subspan(i)) {
    sample *= m_to;
  }
}

}  // namespace mireval
