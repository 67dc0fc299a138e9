#include "platform/linux/audio/FrameHistory.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mireval {

FrameHistory::FrameHistory(std::unique_ptr<AudioDecoder> decoder, double rememberedSeconds)
    : m_decoder(std::move(decoder)),
      m_capacityFrames(static_cast<std::size_t>(std::ceil(rememberedSeconds * m_decoder->sampleRate()))),
      m_ring(std::make_unique_for_overwrite<float[]>(m_capacityFrames * AudioDecoder::channelCount)) {}

std::uint64_t FrameHistory::oldestFrame() const {
  return m_decodedFrames > m_capacityFrames ? m_decodedFrames - m_capacityFrames : 0;
}

std::span<const float> FrameHistory::read(std::uint64_t position, std::size_t most) {
  const auto offset = static_cast<std::size_t>(position % m_capacityFrames);
  const std::size_t room = std::min(most, m_capacityFrames - offset);
  float* const frames = m_ring.get() + offset * AudioDecoder::channelCount;
  if (position >= m_decodedFrames) {
    m_decodedFrames += m_decoder->read({frames, room * AudioDecoder::channelCount});
  }
  const auto known = static_cast<std::size_t>(m_decodedFrames - position);
  return {frames, std::min(room, known) * AudioDecoder::channelCount};
}

}  // namespace mireval
