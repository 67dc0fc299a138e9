#pragma once

#include "platform/linux/audio/FfmpegPointer.h"
#include "platform/linux/audio/StereoConverter.h"

#include <QString>

#include <tl/expected.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <span>
#include <vector>

namespace mireval {

/// Decodes one MPEG-4 audio file (m4a and its family) from its start to stereo frames of 32-bit floats.
/// The encoder's priming and padding are removed. May be used on any thread, by one thread at a time.
class AudioDecoder {
 public:
  static constexpr std::size_t channelCount = StereoConverter::channelCount;

  /// Opens a regular file and decodes its first 50 ms. Refuses a file that is shorter or has no sound, and
  /// everything but a local MPEG-4 file: no other containers, no scripts, no network. The error is FFmpeg's
  /// text.
  static tl::expected<std::unique_ptr<AudioDecoder>, QString> open(const std::filesystem::path& file);

  /// Frames per second of what `read` delivers: the file's own rate.
  int sampleRate() const { return m_converter.sampleRate(); }

  /// Length in seconds as the file states it; 0 when it does not, or states nonsense.
  double durationSeconds() const { return m_durationSeconds; }

  /// Decodes the next frames, interleaved, into `samples`, whose size must be a multiple of the channel
  /// count. Returns the number of frames, which is smaller than asked for only at the end.
  std::size_t read(std::span<float> samples);

  /// True when decoding had to stop before the end of the file.
  bool failed() const { return m_failed; }

 private:
  AudioDecoder() = default;

  int openFile(const std::filesystem::path& file);
  int openCodec(int streamIndex);
  bool isLongEnough();
  bool onlyPaddingFollows(std::uint64_t frames);
  bool decodeFrame();
  bool convert();
  bool succeeds(int status);
  void trimPadding();
  std::size_t pendingFrames() const { return (m_pending.size() - m_pendingStart) / channelCount; }

  FfmpegPointer<AVFormatContext, avformat_close_input> m_format;
  FfmpegPointer<AVCodecContext, avcodec_free_context> m_codec;
  FfmpegPointer<AVPacket, av_packet_free> m_packet;
  FfmpegPointer<AVFrame, av_frame_free> m_frame;
  StereoConverter m_converter;
  int m_streamIndex = -1;
  double m_durationSeconds = 0;
  /// As many frames as the file states. More than that, from the encoder's last block, is padding.
  std::uint64_t m_promisedFrames = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t m_deliveredFrames = 0;
  int m_lastError = 0;
  int m_packetsWithoutSound = 0;
  bool m_draining = false;
  bool m_ended = false;
  bool m_failed = false;
  /// Samples that are decoded and converted; those from m_pendingStart on are not yet delivered.
  std::vector<float> m_pending;
  std::size_t m_pendingStart = 0;
};

}  // namespace mireval
