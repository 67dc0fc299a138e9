#include "platform/linux/audio/PulseAudioPlayer.h"

#include <pulse/error.h>
#include <pulse/sample.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

/// Sixteen bits: the server hands our memory back, and wakes us, once per 64 KiB.
using Sample = std::int16_t;
constexpr pa_sample_format_t sampleFormat = PA_SAMPLE_S16NE;
constexpr std::size_t bytesPerFrame = AudioDecoder::channelCount * sizeof(Sample);

Sample toSample(float value) {
  constexpr float scale = 32768;
  constexpr float highest = 32767;
  return static_cast<Sample>(std::lrint(std::clamp(value * scale, -scale, highest)));
}

/// How much the server holds for us. It asks for more when half of it has been played.
constexpr microseconds bufferLength = 2s;
/// The buffer, and room for what the server took from it but has not made audible.
constexpr double rememberedSeconds = 3;
/// A volume change is heard after this time: enough for the rewritten frames to reach the server.
constexpr microseconds volumeLatency = 30ms;
/// So much is sent at once, to arrive in that time; the rest follows from libpulse's thread.
constexpr microseconds firstRewrite = 100ms;
constexpr microseconds volumeRamp = 10ms;
/// Closer to the end than this counts as the end.
constexpr microseconds endTolerance = 1ms;
/// A server that has not asked for frames for this long, though its buffer must be empty, has stalled. Where
/// a new stream does not help, the next one is tried after twice the time.
constexpr microseconds stallTime = 5s;
constexpr int mostStallDoublings = 4;

constexpr std::array<microseconds, 5> retryDelays{250ms, 500ms, 1s, 2s, 5s};

/// Lets go of a stream that the server has not yet confirmed: until then it cannot be closed.
void closeOnceConfirmed(pa_stream* stream, void*) {
  switch (pa_stream_get_state(stream)) {
    case PA_STREAM_READY:
      pa_stream_disconnect(stream);
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      pa_stream_set_state_callback(stream, nullptr, nullptr);
      pa_stream_unref(stream);
      break;
    default:
      break;
  }
}

}  // namespace

void PulseAudioPlayer::StreamDeleter::operator()(pa_stream* stream) const {
  pa_stream_set_write_callback(stream, nullptr, nullptr);
  pa_stream_set_started_callback(stream, nullptr, nullptr);
  pa_stream_set_underflow_callback(stream, nullptr, nullptr);
  if (pa_stream_get_state(stream) == PA_STREAM_CREATING) {
    pa_stream_set_state_callback(stream, closeOnceConfirmed, nullptr);
    return;
  }
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_disconnect(stream);
  pa_stream_unref(stream);
}

PulseAudioPlayer::PulseAudioPlayer(std::shared_ptr<PulseServer> server, std::filesystem::path file,
                                   std::unique_ptr<AudioDecoder> decoder)
    : m_server(std::move(server)),
      m_file(std::move(file)),
      m_sampleRate(decoder->sampleRate()),
      m_durationSeconds(decoder->durationSeconds()),
      m_frames(std::make_unique<FrameHistory>(std::move(decoder), rememberedSeconds)),
      m_retryTimer(*m_server, [this] { retry(); }),
      m_endTimer(*m_server, [this] { requestTiming(); }),
      m_stallTimer(*m_server, [this] { checkStall(); }),
      m_rewriteTimer(*m_server, [this] { fill(); }) {
  const PulseServer::Lock lock(*m_server);
  m_server->addClient(*this);
}

PulseAudioPlayer::~PulseAudioPlayer() {
  const PulseServer::Lock lock(*m_server);
  m_server->removeClient(*this);
  m_retryTimer.stop();
  dropStream();
}

void PulseAudioPlayer::setDelegate(AudioPlayerDelegate* delegate) {
  const PulseServer::Lock lock(*m_server);
  m_delegate = delegate;
}

void PulseAudioPlayer::setVolume(float volume) {
  const float gain = std::isnan(volume) ? 0 : std::clamp(volume, 0.0F, 1.0F);
  const PulseServer::Lock lock(*m_server);
  if (gain == m_gain.target()) {
    return;
  }
  if (streamIsReady() && m_nextFrame > m_streamStart) {
    rewriteUnheard(gain);
  } else {
    m_gain = GainRamp(gain);
  }
}

float PulseAudioPlayer::volume() const {
  const PulseServer::Lock lock(*m_server);
  return m_gain.target();
}

void PulseAudioPlayer::prepareToPlay() {
  const PulseServer::Lock lock(*m_server);
  if (!m_stream && m_state == State::paused) {
    openStream(m_heard);
  }
}

void PulseAudioPlayer::play() {
  const PulseServer::Lock lock(*m_server);
  if (m_state == State::playing) {
    return;
  }
  if (m_state == State::finished && !rewind()) {
    finish(false);
    return;
  }
  m_state = State::playing;
  m_failedAttempts = 0;
  if (streamIsReady()) {
    setCorked(false);
    m_heardAt = Clock::now();
    m_stallTimer.start(stallPatience());
  } else if (!m_stream) {
    retry();
  }
}

void PulseAudioPlayer::pause() {
  const PulseServer::Lock lock(*m_server);
  if (m_state != State::playing) {
    return;
  }
  updateHeard();
  m_state = State::paused;
  m_retryTimer.stop();
  m_endTimer.stop();
  m_stallTimer.stop();
  if (streamIsReady()) {
    setCorked(true);
  }
}

bool PulseAudioPlayer::isPlaying() const {
  const PulseServer::Lock lock(*m_server);
  return m_state == State::playing;
}

double PulseAudioPlayer::currentTime() const {
  const PulseServer::Lock lock(*m_server);
  updateHeard();
  return static_cast<double>(m_heard) / m_sampleRate;
}

void PulseAudioPlayer::serverReady() {
  if (m_state == State::playing && !m_stream) {
    openStream(m_heard);
  }
}

void PulseAudioPlayer::serverLost() {
  streamLost();
}

void PulseAudioPlayer::openStream(std::uint64_t from) {
  pa_context* const context = m_server->readyContext();
  if (context == nullptr) {
    return;
  }
  m_retryTimer.stop();
  const pa_sample_spec format{.format = sampleFormat,
                              .rate = static_cast<std::uint32_t>(m_sampleRate),
                              .channels = AudioDecoder::channelCount};
  m_stream.reset(pa_stream_new(context, "Mireval", &format, nullptr));
  if (!m_stream) {
    scheduleRetry();
    return;
  }
  m_streamStart = std::max(from, m_frames->oldestFrame());
  m_nextFrame = m_streamStart;
  m_rewriteEnd = 0;
  m_allWritten = false;
  m_drainedAt.reset();
  m_fillsOfStream = 0;

  pa_stream_set_state_callback(
      m_stream.get(),
      [](pa_stream*, void* self) { static_cast<PulseAudioPlayer*>(self)->streamStateChanged(); }, this);
  pa_stream_set_write_callback(
      m_stream.get(),
      [](pa_stream*, std::size_t, void* self) { static_cast<PulseAudioPlayer*>(self)->fill(); }, this);
  pa_stream_set_started_callback(
      m_stream.get(), [](pa_stream*, void* self) { static_cast<PulseAudioPlayer*>(self)->requestTiming(); },
      this);
  pa_stream_set_underflow_callback(
      m_stream.get(),
      [](pa_stream*, void* self) {
        auto& player = *static_cast<PulseAudioPlayer*>(self);
        if (player.m_allWritten) {
          player.m_drainedAt = Clock::now();
          player.requestTiming();
        }
      },
      this);

  constexpr auto unset = static_cast<std::uint32_t>(-1);
  const auto bufferBytes = static_cast<std::uint32_t>(framesIn(bufferLength) * bytesPerFrame);
  const pa_buffer_attr buffer{.maxlength = unset,
                              .tlength = bufferBytes,
                              .prebuf = bytesPerFrame,
                              .minreq = bufferBytes / 2,
                              .fragsize = unset};
  constexpr auto flags =
      static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_INTERPOLATE_TIMING);
  if (pa_stream_connect_playback(m_stream.get(), nullptr, &buffer, flags, nullptr, nullptr) < 0) {
    streamLost();
  }
}

void PulseAudioPlayer::dropStream() {
  m_endTimer.stop();
  m_stallTimer.stop();
  m_rewriteTimer.stop();
  if (m_timingRequest != nullptr) {
    pa_operation_cancel(m_timingRequest);
    pa_operation_unref(std::exchange(m_timingRequest, nullptr));
  }
  m_stream.reset();
}

void PulseAudioPlayer::streamStateChanged() {
  switch (pa_stream_get_state(m_stream.get())) {
    case PA_STREAM_READY:
      fill();
      if (m_state == State::playing) {
        setCorked(false);
        m_heardAt = Clock::now();
        m_stallTimer.start(stallPatience());
      }
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      streamLost();
      break;
    default:
      break;
  }
}

void PulseAudioPlayer::streamLost() {
  if (m_stream && m_state == State::playing && m_fillsOfStream > 0) {
    // The stream can no longer be asked. The clock was asked at least twice a second.
    constexpr microseconds longestUnknown = 1s;
    const auto passed =
        std::min(std::chrono::duration_cast<microseconds>(Clock::now() - m_heardAt), longestUnknown);
    m_heard = std::min(m_heard + framesIn(passed), m_nextFrame);
  }
  dropStream();
  if (m_state == State::playing) {
    scheduleRetry();
  }
}

void PulseAudioPlayer::scheduleRetry() {
  if (!m_retryTimer.isRunning()) {
    const auto index =
        std::min<std::size_t>(static_cast<std::size_t>(m_failedAttempts), retryDelays.size() - 1);
    m_retryTimer.start(retryDelays.at(index));
    ++m_failedAttempts;
  }
}

void PulseAudioPlayer::retry() {
  if (m_state != State::playing || m_stream) {
    return;
  }
  if (m_server->connect()) {
    openStream(m_heard);
  } else {
    scheduleRetry();
  }
}

void PulseAudioPlayer::checkStall() {
  if (streamIsReady()) {
    // What the clock says has run on without sound: go back to what the server had confirmed.
    std::uint64_t confirmed = m_heard;
    if (const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get())) {
      const auto played = std::max<std::int64_t>(timing->read_index, 0);
      confirmed = std::min(m_heard, m_streamStart + static_cast<std::uint64_t>(played) / bytesPerFrame);
    }
    dropStream();
    ++m_failedAttempts;
    openStream(confirmed);
  }
  m_stallTimer.start(stallPatience());
}

microseconds PulseAudioPlayer::stallPatience() const {
  return stallTime * (1 << std::min(m_failedAttempts, mostStallDoublings));
}

bool PulseAudioPlayer::streamIsReady() const {
  return m_stream && pa_stream_get_state(m_stream.get()) == PA_STREAM_READY;
}

void PulseAudioPlayer::fill() {
  if (!streamIsReady() || m_allWritten) {
    return;
  }
  const std::size_t writable = pa_stream_writable_size(m_stream.get());
  if (writable == static_cast<std::size_t>(-1)) {
    return;
  }
  const std::uint64_t unwritten = m_rewriteEnd > m_nextFrame ? m_rewriteEnd - m_nextFrame : 0;
  std::uint64_t wanted = std::max<std::uint64_t>(writable / bytesPerFrame, unwritten);
  if (wanted == 0) {
    return;
  }
  while (wanted > 0) {
    const std::size_t written = write(m_nextFrame, wanted, 0, PA_SEEK_RELATIVE);
    if (written == 0) {
      m_allWritten = true;
      break;
    }
    m_nextFrame += written;
    wanted -= written;
  }
  ++m_fillsOfStream;
  if (m_fillsOfStream > 1) {
    m_failedAttempts = 0;
  }
  if (m_state == State::playing) {
    m_stallTimer.start(m_allWritten ? stallPatience() + bufferLength : stallPatience());
  }
  requestTiming();
}

std::size_t PulseAudioPlayer::write(std::uint64_t position, std::uint64_t frames, std::int64_t offsetBytes,
                                    pa_seek_mode_t seek) {
  void* data = nullptr;
  std::size_t bytes = static_cast<std::size_t>(frames) * bytesPerFrame;
  if (pa_stream_begin_write(m_stream.get(), &data, &bytes) < 0 || data == nullptr) {
    return 0;
  }
  auto* const output = static_cast<Sample*>(data);
  const std::size_t room = std::min(bytes / bytesPerFrame, static_cast<std::size_t>(frames));
  std::array<float, 2048> block;
  std::size_t count = 0;
  while (count < room) {
    const std::size_t wanted = std::min(room - count, block.size() / AudioDecoder::channelCount);
    const std::span<float> samples = std::span(block).first(wanted * AudioDecoder::channelCount);
    const std::size_t got = m_frames->read(position + count, samples);
    if (got == 0) {
      break;
    }
    m_gain.apply(position + count, samples.first(got * AudioDecoder::channelCount));
    std::transform(samples.begin(),
                   samples.begin() + static_cast<std::ptrdiff_t>(got * AudioDecoder::channelCount),
                   output + count * AudioDecoder::channelCount, toSample);
    count += got;
  }
  if (count == 0) {
    pa_stream_cancel_write(m_stream.get());
    return 0;
  }
  pa_stream_write(m_stream.get(), data, count * bytesPerFrame, nullptr, offsetBytes, seek);
  return count;
}

void PulseAudioPlayer::rewriteUnheard(float volume) {
  updateHeard();
  const std::uint64_t earliest = std::max(m_streamStart, m_frames->oldestFrame());
  const std::uint64_t from = std::min(std::max(m_heard + framesIn(volumeLatency), earliest), m_nextFrame);
  m_gain.changeTo(volume, from, framesIn(volumeRamp));
  const std::uint64_t end = std::max(m_nextFrame, m_rewriteEnd);
  const auto offset = static_cast<std::int64_t>((from - m_streamStart) * bytesPerFrame);
  const std::size_t written =
      write(from, std::min(end - from, framesIn(firstRewrite)), offset, PA_SEEK_ABSOLUTE);
  if (written > 0) {
    m_nextFrame = from + written;
    m_rewriteEnd = end;
    m_allWritten = false;
    m_rewriteTimer.start(0us);
  }
}

void PulseAudioPlayer::setCorked(bool corked) {
  if (pa_operation* const operation = pa_stream_cork(m_stream.get(), corked ? 1 : 0, nullptr, nullptr)) {
    pa_operation_unref(operation);
  }
  requestTiming();
}

void PulseAudioPlayer::requestTiming() {
  if (m_timingRequest != nullptr || !streamIsReady()) {
    return;
  }
  m_timingRequest = pa_stream_update_timing_info(
      m_stream.get(),
      [](pa_stream*, int, void* self) { static_cast<PulseAudioPlayer*>(self)->timingArrived(); }, this);
}

void PulseAudioPlayer::timingArrived() {
  if (m_timingRequest != nullptr) {
    pa_operation_unref(std::exchange(m_timingRequest, nullptr));
  }
  updateHeard();
  if (m_allWritten && m_state == State::playing) {
    waitForEnd();
  }
}

void PulseAudioPlayer::updateHeard() const {
  if (m_state != State::playing || !streamIsReady()) {
    return;
  }
  // Between two answers of the server libpulse lets its clock run on, also where nothing plays.
  const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
  pa_usec_t streamTime = 0;
  if (timing == nullptr || timing->playing == 0 || pa_stream_get_time(m_stream.get(), &streamTime) < 0) {
    return;
  }
  const std::uint64_t position = std::min(m_streamStart + framesIn(microseconds(streamTime)), m_nextFrame);
  if (position > m_heard) {
    m_heard = position;
    m_heardAt = Clock::now();
  }
}

void PulseAudioPlayer::waitForEnd() {
  microseconds remaining = timeOf(m_nextFrame - std::min(m_heard, m_nextFrame));
  if (m_drainedAt) {
    // The server's clock has stopped at the last frame that it took; what it took becomes audible later.
    const pa_timing_info* const timing = pa_stream_get_timing_info(m_stream.get());
    const microseconds latency(timing != nullptr ? timing->sink_usec : 0);
    remaining = latency - std::chrono::duration_cast<microseconds>(Clock::now() - *m_drainedAt);
  }
  if (remaining <= endTolerance) {
    finish(!m_frames->decoder().failed());
    return;
  }
  // A sink that stands still must not make us ask again and again.
  constexpr int mostDoublings = 10;
  const microseconds patience = 1ms * (1 << std::min(m_endChecks++, mostDoublings));
  m_endTimer.start(std::max(remaining, patience));
}

void PulseAudioPlayer::finish(bool successfully) {
  m_state = State::finished;
  m_heard = std::max(m_heard, m_nextFrame);
  m_retryTimer.stop();
  dropStream();
  if (m_delegate != nullptr) {
    m_delegate->audioPlayerDidFinishPlaying(*this, successfully);
  }
}

bool PulseAudioPlayer::rewind() {
  auto decoder = AudioDecoder::open(m_file);
  if (!decoder || (*decoder)->sampleRate() != m_sampleRate) {
    return false;
  }
  m_frames = std::make_unique<FrameHistory>(*std::move(decoder), rememberedSeconds);
  m_heard = 0;
  m_streamStart = 0;
  m_nextFrame = 0;
  m_endChecks = 0;
  return true;
}

std::uint64_t PulseAudioPlayer::framesIn(microseconds time) const {
  constexpr std::int64_t microsecondsPerSecond = 1'000'000;
  return static_cast<std::uint64_t>(time.count() * m_sampleRate / microsecondsPerSecond);
}

microseconds PulseAudioPlayer::timeOf(std::uint64_t frames) const {
  constexpr std::int64_t microsecondsPerSecond = 1'000'000;
  return microseconds(static_cast<std::int64_t>(frames) * microsecondsPerSecond / m_sampleRate);
}

}  // namespace mireval
