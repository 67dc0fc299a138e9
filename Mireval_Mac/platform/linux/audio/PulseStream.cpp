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

/// Written before the stream starts; what follows is decoded while this sounds.
constexpr microseconds firstPiece = 200ms;
/// The server's clock is asked again after this time; until then libpulse's estimate is good.
constexpr microseconds trustInClock = 5s;
/// A server that has not answered by then has stopped.
constexpr microseconds answerTime = 250ms;
/// A new gain is heard after this time: replaced frames reach the server by then, also on a busy machine.
constexpr microseconds gainLatency = 100ms;
constexpr microseconds gainRamp = 10ms;

microseconds since(std::chrono::steady_clock::time_point time) {
  return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - time);
}

/// A callback of libpulse that calls a method of the stream.
template <void (PulseStream::*method)(), typename... Details>
void call(pa_stream*, Details..., void* stream) {
  (static_cast<PulseStream*>(stream)->*method)();
}

}  // namespace

PulsePointer<pa_stream> PulseStream::connect(const PulseServer& server, int sampleRate) {
  const pa_sample_spec format{
      .format = sampleFormat, .rate = static_cast<std::uint32_t>(sampleRate), .channels = channels};
  PulsePointer<pa_stream> stream(pa_stream_new(server.readyContext(), "Mireval", &format, nullptr));
  constexpr auto unset = static_cast<std::uint32_t>(-1);
  const auto bytes = static_cast<std::uint32_t>(bufferLength.count() * sampleRate / 1'000'000 *
                                                static_cast<int>(bytesPerFrame));
  const pa_buffer_attr buffer{
      .maxlength = unset, .tlength = bytes, .prebuf = bytesPerFrame, .minreq = bytes / 2, .fragsize = unset};
  constexpr auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_INTERPOLATE_TIMING);
  if (stream && pa_stream_connect_playback(stream.get(), nullptr, &buffer, flags, nullptr, nullptr) < 0) {
    stream.reset();
  }
  return stream;
}

PulseStream::PulseStream(PulseServer& server, PulsePointer<pa_stream> stream, const char* title,
                         FrameHistory& frames, std::uint64_t from, float gain, Client& client)
    : m_frames(frames),
      m_client(client),
      m_sampleRate(frames.decoder().sampleRate()),
      m_start(std::max(from, frames.oldestFrame())),
      m_gain(gain),
      m_stallTimer(server, [this] { suspectStall(); }),
      m_endTimer(server, [this] { requestTiming(); }),
      m_title(title),
      m_stream(std::move(stream)) {
  pa_stream_set_state_callback(m_stream.get(), call<&PulseStream::stateChanged>, this);
  pa_stream_set_write_callback(m_stream.get(), call<&PulseStream::fill, std::size_t>, this);
  pa_stream_set_started_callback(m_stream.get(), call<&PulseStream::requestTiming>, this);
  pa_stream_set_underflow_callback(m_stream.get(), call<&PulseStream::drained>, this);
  if (isReady()) {
    begin();
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
    begin();
    updateCork();
  } else if (!PA_STREAM_IS_GOOD(state)) {
    if (m_playing && m_next > m_start) {
      // The stream can no longer be asked. The clock was asked at least twice a second.
      constexpr microseconds longestUnknown = 1s;
      m_heard = std::min(m_heard + framesIn(std::min(since(m_heardAt), longestUnknown)), m_next);
    }
    m_client.streamLost();
  }
}

void PulseStream::begin() {
  append(framesIn(firstPiece));
  const PulsePointer<pa_operation> naming(pa_stream_set_name(m_stream.get(), m_title, nullptr, nullptr));
  requestTiming();
}

PulsePointer<pa_stream> PulseStream::release() {
  m_endTimer.stop();
  m_stallTimer.stop();
  removeCallbacks(m_stream.get());
  if (isReady() && !m_hasEnded) {
    const PulsePointer<pa_operation> flushing(pa_stream_flush(m_stream.get(), nullptr, nullptr));
    // The next position to be written is known again once the server has answered.
    const PulsePointer<pa_operation> timing(pa_stream_update_timing_info(m_stream.get(), nullptr, nullptr));
  }
  return std::move(m_stream);
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
  const int corked = m_playing ? 0 : 1;
  if (pa_stream_is_corked(m_stream.get()) != corked) {
    const PulsePointer<pa_operation> operation(pa_stream_cork(m_stream.get(), corked, nullptr, nullptr));
  }
  requestTiming();
  if (m_playing) {
    m_heardAt = Clock::now();
    watchForStall(m_patience);
  }
}

void PulseStream::setGain(float gain) {
  if (!isReady() || m_next == m_start) {
    m_gain = GainRamp(gain);
    return;
  }
  if (!origin()) {
    // Until the server has told the stream's position, nothing can be replaced. It holds the first piece
    // only.
    m_gain.changeTo(gain, m_next, framesIn(gainRamp));
    return;
  }
  const std::uint64_t oldest = std::max(m_start, m_frames.oldestFrame());
  const std::uint64_t from = std::clamp(heard() + framesIn(gainLatency), oldest, m_next);
  m_gain.changeTo(gain, from, framesIn(gainRamp));
  write(from, m_next - from);
}

/// The position in the server's stream, in bytes, of the first frame. Unknown until the server has told its
/// own after it has got the stream or thrown frames away.
std::optional<std::int64_t> PulseStream::origin() const {
  const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
  if (timing == nullptr || timing->write_index_corrupt != 0) {
    return std::nullopt;
  }
  return timing->write_index - static_cast<std::int64_t>((m_next - m_start) * bytesPerFrame);
}

/// Appends frames, or replaces what the server holds from an earlier position on. Returns the number of
/// frames, which is smaller than asked for only at the end of the file. To replace, the origin must be known.
std::uint64_t PulseStream::write(std::uint64_t position, std::uint64_t frames) {
  const bool replaces = position < m_next;
  std::int64_t offsetBytes =
      replaces ? *origin() + static_cast<std::int64_t>((position - m_start) * bytesPerFrame) : 0;
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
  // Before it knows the origin, the server need not wait for the decoder.
  const std::size_t writable = isReady() && origin() ? pa_stream_writable_size(m_stream.get()) : 0;
  if (writable != static_cast<std::size_t>(-1) && writable >= bytesPerFrame) {
    append(writable / bytesPerFrame);
  }
}

void PulseStream::append(std::uint64_t frames) {
  if (m_allWritten) {
    return;
  }
  const std::uint64_t written = write(m_next, frames);
  m_next += written;
  m_allWritten = written < frames;
  if (isFlowing()) {
    m_patience = usualPatience;
  }
  if (m_playing) {
    watchForStall(m_allWritten ? m_patience + bufferLength : m_patience);
  }
  if (m_allWritten || since(m_timedAt) > trustInClock) {
    requestTiming();
  }
}

void PulseStream::watchForStall(microseconds patience) {
  m_stallIsSuspected = false;
  m_stallTimer.start(patience);
}

void PulseStream::suspectStall() {
  if (std::exchange(m_stallIsSuspected, true)) {
    m_client.streamStalled();
    return;
  }
  // A server that only stands still can tell what was played until then.
  requestTiming();
  m_stallTimer.start(answerTime);
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
  m_timedAt = Clock::now();
  fill();
  const auto lastHeard = static_cast<std::int64_t>(heard());
  if (!m_allWritten || !m_playing) {
    return;
  }
  const std::int64_t remainingFrames = static_cast<std::int64_t>(m_next) - position().value_or(lastHeard);
  microseconds remaining(1'000'000 * remainingFrames / m_sampleRate);
  const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
  if (timing != nullptr && timing->read_index < timing->write_index) {
    // What had run dry was what the stream played before.
    m_drainedAt.reset();
  }
  if (m_drainedAt) {
    // The server's clock has stopped at the last frame that it took, which becomes audible later.
    remaining = microseconds(timing != nullptr ? timing->sink_usec : 0) - since(*m_drainedAt);
  }
  if (remaining <= endLead) {
    m_heard = m_next;
    m_hasEnded = true;
    m_client.streamEnded();
    return;
  }
  // Ask less and less often, in case the sink stands still.
  constexpr int mostDoublings = 10;
  const microseconds patience = 1ms * (1 << std::min(m_endChecks++, mostDoublings));
  m_endTimer.start(std::max(remaining - endLead, patience));
}

/// Where the server is in the track while it plays; negative while it still plays what was in the stream
/// before.
std::optional<std::int64_t> PulseStream::position() const {
  const pa_timing_info* const timing =
      m_playing && isReady() ? pa_stream_get_timing_info(m_stream.get()) : nullptr;
  const std::optional<std::int64_t> first = timing != nullptr ? origin() : std::nullopt;
  pa_usec_t streamTime = 0;
  // Between two answers of the server, libpulse lets its clock run on even if nothing plays.
  if (!first || timing->playing == 0 || pa_stream_get_time(m_stream.get(), &streamTime) < 0) {
    return std::nullopt;
  }
  const auto played = static_cast<std::int64_t>(framesIn(microseconds(streamTime)));
  return static_cast<std::int64_t>(m_start) + played - *first / static_cast<std::int64_t>(bytesPerFrame);
}

std::uint64_t PulseStream::heard() {
  const auto reached = static_cast<std::uint64_t>(std::max<std::int64_t>(position().value_or(0), 0));
  if (std::min(reached, m_next) > m_heard) {
    m_heard = std::min(reached, m_next);
    m_heardAt = Clock::now();
  }
  return m_heard;
}

std::uint64_t PulseStream::confirmed() const {
  const std::optional<std::int64_t> first = origin();
  if (!first) {
    return m_heard;
  }
  const std::int64_t playedBytes = pa_stream_get_timing_info(m_stream.get())->read_index - *first;
  const auto played = static_cast<std::uint64_t>(std::max<std::int64_t>(playedBytes, 0));
  return std::min(m_heard, m_start + played / bytesPerFrame);
}

}  // namespace mireval
