#include "platform/linux/audio/PulseAudioPlayer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

/// The stream's buffer, and room for what the server took from it but has not made audible.
constexpr double rememberedSeconds = 3;

}  // namespace

PulseAudioPlayer::Playing::Playing(PulseAudioPlayer& player)
    : server(player.m_server),
      retryTimer(server, [&player] { player.retry(); }),
      socketWatcher(server, [this] { retrySoon(); }) {}

PulseAudioPlayer::Playing::~Playing() {
  awaitNothing();
}

microseconds PulseAudioPlayer::Playing::stallPatience() const {
  constexpr int mostDoublings = 4;
  return PulseStream::usualPatience * (1 << std::min(failedAttempts, mostDoublings));
}

void PulseAudioPlayer::Playing::scheduleRetry() {
  constexpr std::array<microseconds, 5> delays{250ms, 500ms, 1s, 2s, 5s};
  if (!retryTimer.isRunning()) {
    retryTimer.start(delays.at(std::min(static_cast<std::size_t>(failedAttempts), delays.size() - 1)));
    ++failedAttempts;
  }
  // So that a server or a sink that comes during a long pause is not kept waiting.
  if (server.readyContext() == nullptr) {
    socketWatcher.start();
  } else if (!std::exchange(awaitsSink, true)) {
    server.awaitSink();
  }
}

void PulseAudioPlayer::Playing::awaitNothing() {
  retryTimer.stop();
  socketWatcher.stop();
  if (std::exchange(awaitsSink, false)) {
    server.awaitNoSink();
  }
}

void PulseAudioPlayer::Playing::retrySoon() {
  // The server listens at its socket soon after making it. If it is not that quick, short pauses come first
  // again.
  constexpr microseconds listening = 20ms;
  failedAttempts = 0;
  retryTimer.start(listening);
}

PulseAudioPlayer::PulseAudioPlayer(std::shared_ptr<PulseOutput> output, std::filesystem::path file,
                                   const QString& title, std::unique_ptr<AudioDecoder> decoder)
    : m_output(std::move(output)),
      m_server(m_output->server()),
      m_file(std::move(file)),
      m_title(title.toUtf8()),
      m_sampleRate(decoder->sampleRate()),
      m_durationSeconds(decoder->durationSeconds()),
      m_frames(std::make_unique<FrameHistory>(std::move(decoder), rememberedSeconds)) {
  const PulseServer::Lock lock(m_server);
  m_server.addClient(*this);
}

PulseAudioPlayer::~PulseAudioPlayer() {
  const PulseServer::Lock lock(m_server);
  m_server.removeClient(*this);
  giveUpSound();
  m_output->forgetHolder(*this);
}

void PulseAudioPlayer::setDelegate(AudioPlayerDelegate* delegate) {
  const PulseServer::Lock lock(m_server);
  m_delegate = delegate;
}

void PulseAudioPlayer::setVolume(float volume) {
  const PulseServer::Lock lock(m_server);
  m_gain = std::isnan(volume) ? 0 : std::clamp(volume, 0.0F, 1.0F);
  if (m_stream) {
    m_stream->setGain(m_gain);
  }
}

float PulseAudioPlayer::volume() const {
  const PulseServer::Lock lock(m_server);
  return m_gain;
}

void PulseAudioPlayer::prepareToPlay() {
  const PulseServer::Lock lock(m_server);
  m_output->prepare(m_sampleRate);
}

void PulseAudioPlayer::play() {
  const PulseServer::Lock lock(m_server);
  if (m_playing) {
    return;
  }
  if (!m_frames && !reopenFile()) {
    finish(false);
    return;
  }
  m_output->claimSound(*this);
  m_playing.emplace(*this);
  if (m_stream) {
    m_stream->play(m_playing->stallPatience());
  } else {
    retry();
  }
}

void PulseAudioPlayer::pause() {
  const PulseServer::Lock lock(m_server);
  if (m_playing) {
    m_playing.reset();
    if (m_stream) {
      m_stream->pause();
    }
    m_output->soundStopped();
  }
}

bool PulseAudioPlayer::isPlaying() const {
  const PulseServer::Lock lock(m_server);
  return m_playing.has_value();
}

double PulseAudioPlayer::currentTime() const {
  const PulseServer::Lock lock(m_server);
  const std::uint64_t heard = std::max(m_heard, m_stream ? m_stream->heard() : 0);
  return static_cast<double>(heard) / m_sampleRate;
}

void PulseAudioPlayer::serverReady() {
  if (m_playing && !m_stream) {
    openStream(m_heard);
  }
}

void PulseAudioPlayer::serverLost() {
  // libpulse itself tells a stream.
  if (m_playing && !m_stream) {
    if (m_playing->failedAttempts > 0) {
      m_server.askForServer();
    }
    m_playing->scheduleRetry();
  }
}

void PulseAudioPlayer::streamLost() {
  dropStream();
  if (m_playing) {
    m_playing->scheduleRetry();
  }
}

void PulseAudioPlayer::streamStalled() {
  // The clock has run on without sound: go back to what the server has confirmed.
  const std::uint64_t confirmed = m_stream->confirmed();
  dropStream();
  ++m_playing->failedAttempts;
  openStream(confirmed);
}

void PulseAudioPlayer::streamEnded() {
  giveStreamBack();
  finish(!m_frames->decoder().failed());
}

void PulseAudioPlayer::giveUpSound() {
  if (m_stream) {
    m_stream->heard();
    giveStreamBack();
  }
  m_playing.reset();
}

void PulseAudioPlayer::openStream(std::uint64_t from) {
  if (m_server.readyContext() == nullptr) {
    // `serverReady` or `serverLost` follows.
    return;
  }
  m_playing->awaitNothing();
  PulsePointer<pa_stream> stream = m_output->take(m_sampleRate);
  if (!stream) {
    m_playing->scheduleRetry();
    return;
  }
  PulseStream::Client& client = *this;
  m_stream = std::make_unique<PulseStream>(m_server, std::move(stream), m_title.constData(), *m_frames, from,
                                           m_gain, client);
  m_stream->play(m_playing->stallPatience());
}

void PulseAudioPlayer::giveStreamBack() {
  m_heard = std::max(m_heard, m_stream->lastHeard());
  m_output->giveBack(m_stream->release());
  m_stream.reset();
}

void PulseAudioPlayer::dropStream() {
  if (m_playing && m_stream->isFlowing()) {
    m_playing->failedAttempts = 0;
  }
  m_heard = std::max(m_heard, m_stream->lastHeard());
  m_stream.reset();
  m_output->streamLost();
}

void PulseAudioPlayer::retry() {
  if (m_stream) {
    return;
  }
  if (m_server.connect()) {
    openStream(m_heard);
  } else {
    m_server.askForServer();
    m_playing->scheduleRetry();
  }
}

bool PulseAudioPlayer::reopenFile() {
  auto decoder = AudioDecoder::open(m_file);
  if (!decoder || (*decoder)->sampleRate() != m_sampleRate) {
    return false;
  }
  m_frames = std::make_unique<FrameHistory>(*std::move(decoder), rememberedSeconds);
  m_heard = 0;
  return true;
}

void PulseAudioPlayer::finish(bool successfully) {
  m_playing.reset();
  m_frames.reset();
  if (m_delegate != nullptr) {
    m_delegate->audioPlayerDidFinishPlaying(*this, successfully);
  }
}

}  // namespace mireval
