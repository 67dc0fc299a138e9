#include "platform/linux/audio/FrameHistory.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mireval {
namespace {

constexpr std::size_t channels = AudioDecoder::channelCount;

}  // namespace

FrameHistory::FrameHistory(std::unique_ptr<AudioDecoder> decoder, double rememberedSeconds)
    : m_decoder(std::move(decoder)),
      m_capacityFrames(static_cast<std::size_t>(std::ceil(rememberedSeconds * m_decoder->sampleRate()))),
      m_ring(std::make_unique_for_overwrite<float[]>(m_capacityFrames * channels)) {}

std::uint64_t FrameHistory::oldestFrame() const {
  return m_decodedFrames > m_capacityFrames ? m_decodedFrames - m_capacityFrames : 0;
}

std::size_t FrameHistory::read(std::uint64_t position, std::span<float> samples) {
  if (position >= m_decodedFrames) {
    const std::size_t count = m_decoder->read(samples);
    remember(samples.first(count * channels));
    return count;
  }
  const auto offset = static_cast<std::size_t>(position % m_capacityFrames);
  const std::size_t count = std::min({samples.size() / channels, m_capacityFrames - offset,
                                      static_cast<std::size_t>(m_decodedFrames - position)});
  std::copy_n(m_ring.get() + offset * channels, count * channels, samples.begin());
  return count;
}

void FrameHistory::remember(std::span<const float> samples) {
  while (!samples.empty()) {
    const auto offset = static_cast<std::size_t>(m_decodedFrames % m_capacityFrames);
    const std::size_t count = std::min(samples.size() / channels, m_capacityFrames - offset);
    std::copy_n(samples.begin(), count * channels, m_ring.get() + offset * channels);
    samples = samples.subspan(count * channels);
    m_decodedFrames += count;
  }
}

}  // namespace mireval
