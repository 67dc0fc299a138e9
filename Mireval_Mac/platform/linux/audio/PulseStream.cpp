#include "platform/linux/audio/PulseStream.h"

#include <algorithm>
#include <span>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

/// Sixteen bits: the server returns our memory, and wakes us, once per 64 KiB.
using Sample = std::int16_t;
constexpr pa_sample_format_t sampleFormat = PA_SAMPLE_S16NE;
constexpr std::size_t channels = AudioDecoder::channelCount;
constexpr std::size_t bytesPerFrame = channels * sizeof(Sample);

/// How much the server holds for us. It asks for more when half of it has been played.
constexpr microseconds bufferLength = 2s;
/// A new gain is heard after this time: replaced frames reach the server by then, also on a busy machine.
constexpr microseconds gainLatency = 100ms;
constexpr microseconds gainRamp = 10ms;
/// Closer to the end than this counts as the end.
constexpr microseconds endTolerance = 1ms;

microseconds since(std::chrono::steady_clock::time_point time) {
  return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - time);
}

/// A callback of libpulse that calls a method of the stream.
template <void (PulseStream::*method)(), typename... Details>
void call(pa_stream*, Details..., void* stream) {
  (static_cast<PulseStream*>(stream)->*method)();
}

}  // namespace

std::unique_ptr<PulseStream> PulseStream::open(PulseServer& server, const char* title, FrameHistory& frames,
                                               std::uint64_t from, float gain, Client& client) {
  std::unique_ptr<PulseStream> stream(new PulseStream(server, title, frames, from, gain, client));
  return stream->m_stream ? std::move(stream) : nullptr;
}

PulseStream::PulseStream(PulseServer& server, const char* title, FrameHistory& frames, std::uint64_t from,
                         float gain, Client& client)
    : m_frames(frames),
      m_client(client),
      m_sampleRate(frames.decoder().sampleRate()),
      m_start(std::max(from, frames.oldestFrame())),
      m_gain(gain),
      m_stallTimer(server, [this] { m_client.streamStalled(); }),
      m_endTimer(server, [this] { requestTiming(); }) {
  const pa_sample_spec format{
      .format = sampleFormat, .rate = static_cast<std::uint32_t>(m_sampleRate), .channels = channels};
  m_stream.reset(pa_stream_new(server.readyContext(), title, &format, nullptr));
  if (!m_stream) {
    return;
  }
  pa_stream_set_state_callback(m_stream.get(), call<&PulseStream::stateChanged>, this);
  pa_stream_set_write_callback(m_stream.get(), call<&PulseStream::fill, std::size_t>, this);
  pa_stream_set_started_callback(m_stream.get(), call<&PulseStream::requestTiming>, this);
  pa_stream_set_underflow_callback(m_stream.get(), call<&PulseStream::drained>, this);

  constexpr auto unset = static_cast<std::uint32_t>(-1);
  const auto bytes = static_cast<std::uint32_t>(framesIn(bufferLength) * bytesPerFrame);
  const pa_buffer_attr buffer{
      .maxlength = unset, .tlength = bytes, .prebuf = bytesPerFrame, .minreq = bytes / 2, .fragsize = unset};
  constexpr auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_INTERPOLATE_TIMING);
  if (pa_stream_connect_playback(m_stream.get(), nullptr, &buffer, flags, nullptr, nullptr) < 0) {
    m_stream.reset();
  }
}

PulseStream::~PulseStream() {
  if (m_timingRequest) {
    pa_operation_cancel(m_timingRequest.get());
  }
}

void PulseStream::stateChanged() {
  const pa_stream_state_t state = pa_stream_get_state(m_stream.get());
  if (state == PA_STREAM_READY) {
    fill();
    updateCork();
  } else if (!PA_STREAM_IS_GOOD(state)) {
    if (m_playing && m_fills > 0) {
      // The stream can no longer be asked. The clock was asked at least twice a second.
      constexpr microseconds longestUnknown = 1s;
      m_heard = std::min(m_heard + framesIn(std::min(since(m_heardAt), longestUnknown)), m_next);
    }
    m_client.streamLost();
  }
}

void PulseStream::play(microseconds patience) {
  m_playing = true;
  m_patience = patience;
  updateCork();
}

void PulseStream::pause() {
  heard();
  m_playing = false;
  m_endTimer.stop();
  m_stallTimer.stop();
  updateCork();
}

void PulseStream::updateCork() {
  if (!isReady()) {
    return;
  }
  const PulsePointer<pa_operation> operation(
      pa_stream_cork(m_stream.get(), m_playing ? 0 : 1, nullptr, nullptr));
  requestTiming();
  if (m_playing) {
    m_heardAt = Clock::now();
    m_stallTimer.start(m_patience);
  }
}

void PulseStream::setGain(float gain) {
  if (!isReady() || m_next == m_start) {
    m_gain = GainRamp(gain);
    return;
  }
  const std::uint64_t oldest = std::max(m_start, m_frames.oldestFrame());
  const std::uint64_t from = std::clamp(heard() + framesIn(gainLatency), oldest, m_next);
  m_gain.changeTo(gain, from, framesIn(gainRamp));
  write(from, m_next - from);
}

/// Appends frames, or replaces what the server holds from an earlier position on. Returns the number of
/// frames, which is smaller than asked for only at the end of the file.
std::uint64_t PulseStream::write(std::uint64_t position, std::uint64_t frames) {
  const bool replaces = position < m_next;
  auto offsetBytes = replaces ? static_cast<std::int64_t>((position - m_start) * bytesPerFrame) : 0;
  pa_seek_mode_t seek = replaces ? PA_SEEK_ABSOLUTE : PA_SEEK_RELATIVE;
  std::uint64_t written = 0;
  while (written < frames) {
    void* data = nullptr;
    auto bytes = static_cast<std::size_t>(frames - written) * bytesPerFrame;
    if (pa_stream_begin_write(m_stream.get(), &data, &bytes) < 0 || data == nullptr) {
      break;
    }
    const std::size_t room = std::min<std::uint64_t>(bytes / bytesPerFrame, frames - written);
    const std::span<const float> samples = m_frames.read(position + written, room);
    if (samples.empty()) {
      pa_stream_cancel_write(m_stream.get());
      break;
    }
    m_gain.apply(position + written, samples, {static_cast<Sample*>(data), samples.size()});
    pa_stream_write(m_stream.get(), data, samples.size() * sizeof(Sample), nullptr, offsetBytes, seek);
    written += samples.size() / channels;
    offsetBytes = 0;
    seek = PA_SEEK_RELATIVE;
  }
  return written;
}

void PulseStream::fill() {
  const std::size_t writable = isReady() ? pa_stream_writable_size(m_stream.get()) : 0;
  if (m_allWritten || writable == static_cast<std::size_t>(-1) || writable < bytesPerFrame) {
    return;
  }
  const std::uint64_t wanted = writable / bytesPerFrame;
  const std::uint64_t written = write(m_next, wanted);
  m_next += written;
  m_allWritten = written < wanted;
  if (++m_fills > 1) {
    m_patience = usualPatience;
  }
  if (m_playing) {
    m_stallTimer.start(m_allWritten ? m_patience + bufferLength : m_patience);
  }
  requestTiming();
}

// When is the track over? The server's clock says how much is still to be heard after the last frame was
// written. It is asked when the server starts, runs dry or should be done.

void PulseStream::drained() {
  if (m_allWritten) {
    m_drainedAt = Clock::now();
    requestTiming();
  }
}

void PulseStream::requestTiming() {
  if (!m_timingRequest && isReady()) {
    m_timingRequest.reset(
        pa_stream_update_timing_info(m_stream.get(), call<&PulseStream::timingArrived, int>, this));
  }
}

void PulseStream::timingArrived() {
  m_timingRequest.reset();
  microseconds remaining(1'000'000 * (m_next - heard()) / static_cast<std::uint64_t>(m_sampleRate));
  if (!m_allWritten || !m_playing) {
    return;
  }
  if (m_drainedAt) {
    // The server's clock has stopped at the last frame that it took, which becomes audible later.
    const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
    remaining = microseconds(timing != nullptr ? timing->sink_usec : 0) - since(*m_drainedAt);
  }
  if (remaining <= endTolerance) {
    m_heard = m_next;
    m_client.streamEnded();
    return;
  }
  // Ask less and less often, in case the sink stands still.
  constexpr int mostDoublings = 10;
  const microseconds patience = 1ms * (1 << std::min(m_endChecks++, mostDoublings));
  m_endTimer.start(std::max(remaining, patience));
}

std::uint64_t PulseStream::heard() {
  const pa_timing_info* const timing =
      m_playing && isReady() ? pa_stream_get_timing_info(m_stream.get()) : nullptr;
  pa_usec_t streamTime = 0;
  // Between two answers of the server, libpulse lets its clock run on even if nothing plays.
  if (timing != nullptr && timing->playing != 0 && pa_stream_get_time(m_stream.get(), &streamTime) >= 0) {
    const std::uint64_t position = std::min(m_start + framesIn(microseconds(streamTime)), m_next);
    if (position > m_heard) {
      m_heard = position;
      m_heardAt = Clock::now();
    }
  }
  return m_heard;
}

std::uint64_t PulseStream::confirmed() const {
  const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
  if (timing == nullptr) {
    return m_heard;
  }
  const auto played = static_cast<std::uint64_t>(std::max<std::int64_t>(timing->read_index, 0));
  return std::min(m_heard, m_start + played / bytesPerFrame);
}

}  // namespace mireval
