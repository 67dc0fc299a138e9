#pragma once

#include "platform/linux/audio/FfmpegPointer.h"

#include <cstddef>
#include <vector>

namespace mireval {

/// Converts decoded frames to interleaved stereo samples at one rate. Mono is put on both sides at full
/// level; more channels are mixed without exceeding full scale. May be used on any thread, by one at a time.
class StereoConverter {
 public:
  static constexpr std::size_t channelCount = 2;

  /// Frames per second of what `convert` appends: the rate of the first frame if sound servers accept it. 0
  /// before the first frame.
  int sampleRate() const { return m_sampleRate; }

  /// Appends the converted `frame` to `samples`. Returns the number of frames that were appended, which may
  /// be 0, or FFmpeg's error code, which is negative.
  int convert(const AVFrame& frame, std::vector<float>& samples);

 private:
  int configure(const AVFrame& frame);
  int createConverter(const AVFrame& frame);

  FfmpegPointer<SwrContext, swr_free> m_converter;
  int m_sampleRate = 0;
  int m_inputRate = 0;
  int m_inputFormat = -1;
  int m_inputChannels = 0;
};

}  // namespace mireval
