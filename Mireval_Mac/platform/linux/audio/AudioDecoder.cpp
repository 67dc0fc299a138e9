#include "platform/linux/audio/AudioDecoder.h"

#include "platform/linux/audio/Mp4SampleTables.h"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>

namespace mireval {
namespace {

/// The container family that ships. No format is allowed that could name further files or hosts.
constexpr const char* allowedFormats = "mov,mp4,m4a,3gp,3g2,mj2";
constexpr const char* allowedProtocols = "file";

constexpr double longestDurationSeconds = 24.0 * 60 * 60;
/// More than any encoder's padding, less than any musical ending.
constexpr std::size_t largestPaddingFrames = 4096;
/// In bytes, for each buffer of FFmpeg: more than the index of the longest file that is opened needs.
constexpr std::size_t largestAllocation = 32 << 20;
/// The player would start shorter tracks again and again.
constexpr double shortestTrackSeconds = 0.05;
/// A short damaged part is skipped; after seconds of it decoding stops.
constexpr int mostPacketsWithoutSound = 256;

QString describe(int error) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(error, text.data(), text.size());
  return QString::fromUtf8(text.data());
}

/// Opening a pipe would block until somebody writes to it, so the kind of file is checked first.
int checkRegularFile(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) {
    return AVERROR(errno);
  }
  if (S_ISDIR(status.st_mode)) {
    return AVERROR(EISDIR);
  }
  return S_ISREG(status.st_mode) ? 0 : AVERROR(EINVAL);
}

}  // namespace

tl::expected<std::unique_ptr<AudioDecoder>, QString> AudioDecoder::open(const std::filesystem::path& file) {
  av_log_set_level(AV_LOG_QUIET);
  av_max_alloc(largestAllocation);
  std::unique_ptr<AudioDecoder> decoder(new AudioDecoder);
  int error = decoder->openFile(file);
  if (error >= 0 && !decoder->isLongEnough()) {
    error = decoder->m_lastError < 0 ? decoder->m_lastError : AVERROR_INVALIDDATA;
  }
  if (error < 0) {
    return tl::make_unexpected(describe(error));
  }
  return decoder;
}

bool AudioDecoder::isLongEnough() {
  if (!decodeFrame()) {
    return false;
  }
  if (m_durationSeconds > 0) {
    m_promisedFrames = static_cast<std::uint64_t>(std::llround(m_durationSeconds * sampleRate()));
  }
  const auto fewest = static_cast<std::uint64_t>(std::llround(shortestTrackSeconds * sampleRate()));
  if (m_promisedFrames < fewest && onlyPaddingFollows(m_promisedFrames)) {
    return false;
  }
  while (pendingFrames() < fewest && decodeFrame()) {
  }
  return pendingFrames() >= fewest;
}

int AudioDecoder::openFile(const std::filesystem::path& file) {
  if (const int error = checkRegularFile(file); error < 0) {
    return error;
  }
  if (!Mp4SampleTables::areAffordable(file)) {
    return AVERROR_INVALIDDATA;
  }
  m_packet.reset(av_packet_alloc());
  m_frame.reset(av_frame_alloc());
  if (!m_packet || !m_frame) {
    return AVERROR(ENOMEM);
  }
  AVDictionary* options = nullptr;
  av_dict_set(&options, "format_whitelist", allowedFormats, 0);
  av_dict_set(&options, "protocol_whitelist", allowedProtocols, 0);
  av_dict_set_int(&options, "max_streams", Mp4SampleTables::mostStreams, 0);
  av_dict_set(&options, "ignore_chapters", "1", 0);
  // The prefix keeps a path such as "http:/x" a path.
  const std::string url = "file:" + file.string();
  AVFormatContext* format = nullptr;
  const int opened = avformat_open_input(&format, url.c_str(), nullptr, &options);
  m_format.reset(format);
  av_dict_free(&options);
  if (opened < 0) {
    return opened;
  }
  const int streamIndex = av_find_best_stream(m_format.get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  if (streamIndex < 0) {
    return streamIndex;
  }
  return openCodec(streamIndex);
}

int AudioDecoder::openCodec(int streamIndex) {
  for (unsigned int i = 0; i < m_format->nb_streams; ++i) {
    if (i != static_cast<unsigned int>(streamIndex)) {
      m_format->streams[i]->discard = AVDISCARD_ALL;
    }
  }
  const AVStream* const stream = m_format->streams[streamIndex];
  const AVCodec* const codec = avcodec_find_decoder(stream->codecpar->codec_id);
  if (codec == nullptr) {
    return AVERROR_DECODER_NOT_FOUND;
  }
  m_codec.reset(avcodec_alloc_context3(codec));
  if (!m_codec) {
    return AVERROR(ENOMEM);
  }
  if (const int error = avcodec_parameters_to_context(m_codec.get(), stream->codecpar); error < 0) {
    return error;
  }
  m_codec->pkt_timebase = stream->time_base;
  m_codec->thread_count = 1;
  if (const int error = avcodec_open2(m_codec.get(), codec, nullptr); error < 0) {
    return error;
  }
  m_streamIndex = streamIndex;
  if (stream->duration > 0) {
    const double seconds = static_cast<double>(stream->duration) * av_q2d(stream->time_base);
    if (std::isfinite(seconds) && seconds <= longestDurationSeconds) {
      m_durationSeconds = seconds;
    }
  }
  return 0;
}

std::size_t AudioDecoder::read(std::span<float> samples) {
  const std::size_t wanted = samples.size() / channelCount;
  std::size_t done = 0;
  while (done < wanted) {
    if (pendingFrames() == 0 && !decodeFrame()) {
      break;
    }
    trimPadding();
    std::size_t count = std::min(wanted - done, pendingFrames());
    if (m_deliveredFrames < m_promisedFrames) {
      count = static_cast<std::size_t>(std::min<std::uint64_t>(count, m_promisedFrames - m_deliveredFrames));
    }
    std::copy_n(m_pending.begin() + static_cast<std::ptrdiff_t>(m_pendingStart), count * channelCount,
                samples.begin() + static_cast<std::ptrdiff_t>(done * channelCount));
    m_pendingStart += count * channelCount;
    m_deliveredFrames += count;
    done += count;
  }
  return done;
}

void AudioDecoder::trimPadding() {
  if (m_deliveredFrames != m_promisedFrames) {
    return;
  }
  if (onlyPaddingFollows(0)) {
    m_pending.clear();
    m_pendingStart = 0;
  } else {
    // The stated length is wrong: what follows is sound, not padding.
    m_promisedFrames = std::numeric_limits<std::uint64_t>::max();
  }
}

/// Decodes ahead to see whether the file ends soon after the next `frames`.
bool AudioDecoder::onlyPaddingFollows(std::uint64_t frames) {
  while (pendingFrames() < frames + largestPaddingFrames && decodeFrame()) {
  }
  return pendingFrames() < frames + largestPaddingFrames;
}

/// Remembers an error. A codec that asks for input or has ended makes no error.
bool AudioDecoder::succeeds(int status) {
  if (status < 0 && status != AVERROR(EAGAIN) && status != AVERROR_EOF) {
    m_lastError = status;
  }
  return status >= 0;
}

bool AudioDecoder::decodeFrame() {
  while (!m_ended) {
    if (succeeds(avcodec_receive_frame(m_codec.get(), m_frame.get()))) {
      if (convert()) {
        m_packetsWithoutSound = 0;
        return true;
      }
      continue;
    }
    if (m_draining || m_packetsWithoutSound >= mostPacketsWithoutSound) {
      m_failed = m_failed || !m_draining;
      m_ended = true;
      break;
    }
    const int readStatus = av_read_frame(m_format.get(), m_packet.get());
    if (readStatus < 0) {
      m_failed = m_failed || readStatus != AVERROR_EOF;
      succeeds(readStatus);
      m_draining = true;
      avcodec_send_packet(m_codec.get(), nullptr);
      continue;
    }
    ++m_packetsWithoutSound;
    if (m_packet->stream_index == m_streamIndex) {
      succeeds(avcodec_send_packet(m_codec.get(), m_packet.get()));
    }
    av_packet_unref(m_packet.get());
  }
  return false;
}

bool AudioDecoder::convert() {
  m_pending.erase(m_pending.begin(), m_pending.begin() + static_cast<std::ptrdiff_t>(m_pendingStart));
  m_pendingStart = 0;
  const int count = m_converter.convert(*m_frame, m_pending);
  return succeeds(count) && count > 0;
}

}  // namespace mireval
