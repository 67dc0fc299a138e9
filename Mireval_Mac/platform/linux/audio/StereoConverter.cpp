#include "platform/linux/audio/StereoConverter.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <array>
#include <cstdint>

namespace mireval {
namespace {

/// The rates that sound servers accept; a file with another rate is resampled.
constexpr int lowestServerRate = 8000;
constexpr int highestServerRate = 192000;
constexpr int fallbackRate = 48000;
/// No codec has longer frames. At a nonsensical rate, one frame could fill the memory.
constexpr double longestFrameSeconds = 10;

}  // namespace

int StereoConverter::convert(const AVFrame& frame, std::vector<float>& samples) {
  if (frame.nb_samples <= 0 || frame.nb_samples > longestFrameSeconds * frame.sample_rate) {
    return AVERROR_INVALIDDATA;
  }
  if (const int error = configure(frame); error < 0) {
    return error;
  }
  const int room = swr_get_out_samples(m_converter.get(), frame.nb_samples);
  if (room <= 0) {
    return room;
  }
  const std::size_t before = samples.size();
  samples.resize(before + static_cast<std::size_t>(room) * channelCount);
  auto* output = reinterpret_cast<std::uint8_t*>(samples.data() + before);
  const int count = swr_convert(m_converter.get(), &output, room,
                                const_cast<const std::uint8_t**>(frame.extended_data), frame.nb_samples);
  samples.resize(before + static_cast<std::size_t>(std::max(count, 0)) * channelCount);
  return count;
}

int StereoConverter::configure(const AVFrame& frame) {
  if (m_inputFormat == frame.format && m_inputRate == frame.sample_rate &&
      m_inputChannels == frame.ch_layout.nb_channels) {
    return 0;
  }
  if (m_sampleRate == 0) {
    const bool served = frame.sample_rate >= lowestServerRate && frame.sample_rate <= highestServerRate;
    m_sampleRate = served ? frame.sample_rate : fallbackRate;
  }
  const int status = createConverter(frame);
  m_inputFormat = status < 0 ? -1 : frame.format;
  m_inputRate = frame.sample_rate;
  m_inputChannels = frame.ch_layout.nb_channels;
  return status;
}

int StereoConverter::createConverter(const AVFrame& frame) {
  AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
  AVChannelLayout source{};
  if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC) {
    av_channel_layout_default(&source, frame.ch_layout.nb_channels);
  } else {
    av_channel_layout_copy(&source, &frame.ch_layout);
  }
  SwrContext* converter = m_converter.release();
  int status = swr_alloc_set_opts2(&converter, &stereo, AV_SAMPLE_FMT_FLT, m_sampleRate, &source,
                                   static_cast<AVSampleFormat>(frame.format), frame.sample_rate, 0, nullptr);
  m_converter.reset(converter);
  if (status >= 0 && source.nb_channels == 1) {
    // Full level on both sides; the library's own default would lower it by 3 dB.
    constexpr std::array<double, channelCount> both{1.0, 1.0};
    status = swr_set_matrix(m_converter.get(), both.data(), 1);
  }
  if (status >= 0) {
    // By default the library lets a mix of floats exceed full scale.
    status = av_opt_set_double(m_converter.get(), "rematrix_maxval", 1.0, 0);
  }
  av_channel_layout_uninit(&source);
  return status < 0 ? status : swr_init(m_converter.get());
}

}  // namespace mireval
