#include "platform/linux/audio/PulseOutput.h"

#include "platform/linux/audio/PulseStream.h"

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;

/// Longer than the end of a track still takes when its player gives the stream back.
constexpr auto runOutTime = 1s;

}  // namespace

PulseOutput::PulseOutput(PulsePointer<pa_threaded_mainloop> mainloop, Notices& notices,
                         std::chrono::microseconds kept)
    : m_server(std::move(mainloop), notices),
      m_kept(kept),
      m_runOutTimer(m_server, [this] { endRunningOut(); }),
      m_dropTimer(m_server, [this] { dropUnused(); }) {
  const PulseServer::Lock lock(m_server);
  m_server.addClient(*this);
}

PulseOutput::~PulseOutput() {
  const PulseServer::Lock lock(m_server);
  m_server.removeClient(*this);
  m_runOutTimer.stop();
  m_dropTimer.stop();
  m_idle.reset();
  m_leaving.reset();
}

void PulseOutput::expectSound() {
  m_soundIsExpected = true;
  m_dropTimer.stop();
  m_server.connect();
  prepare(m_sampleRate);
}

void PulseOutput::expectNoSound() {
  m_soundIsExpected = false;
  soundStopped();
}

void PulseOutput::soundStopped() {
  if (!m_soundIsExpected) {
    m_dropTimer.start(m_kept);
  }
}

void PulseOutput::prepare(int sampleRate) {
  m_sampleRate = sampleRate;
  if (!m_idle && !m_isTaken && m_server.readyContext() != nullptr) {
    keepIdle(PulseStream::connect(m_server, sampleRate));
  }
}

void PulseOutput::serverReady() {
  if (m_soundIsExpected) {
    prepare(m_sampleRate);
  }
}

void PulseOutput::claimSound(Holder& holder) {
  Holder* const earlier = std::exchange(m_holder, &holder);
  if (earlier != nullptr && earlier != &holder) {
    earlier->giveUpSound();
  }
  // The timer may run since the end of the track before.
  m_dropTimer.stop();
}

void PulseOutput::forgetHolder(const Holder& holder) {
  if (m_holder == &holder) {
    m_holder = nullptr;
  }
}

PulsePointer<pa_stream> PulseOutput::take(int sampleRate) {
  m_sampleRate = sampleRate;
  if (m_idle && pa_stream_get_sample_spec(m_idle.get())->rate != static_cast<std::uint32_t>(sampleRate)) {
    removeCallbacks(m_idle.get());
    m_leaving = std::move(m_idle);
    m_runOutTimer.start(runOutTime);
  }
  PulsePointer<pa_stream> stream = m_idle ? std::move(m_idle) : PulseStream::connect(m_server, sampleRate);
  m_isTaken = stream != nullptr;
  return stream;
}

void PulseOutput::giveBack(PulsePointer<pa_stream> stream) {
  m_isTaken = false;
  keepIdle(std::move(stream));
  m_runOutTimer.start(runOutTime);
  soundStopped();
}

void PulseOutput::streamLost() {
  m_isTaken = false;
}

void PulseOutput::keepIdle(PulsePointer<pa_stream> stream) {
  m_idle = std::move(stream);
  if (m_idle) {
    pa_stream_set_state_callback(
        m_idle.get(), [](pa_stream*, void* self) { static_cast<PulseOutput*>(self)->idleStateChanged(); },
        this);
  }
}

void PulseOutput::idleStateChanged() {
  if (!PA_STREAM_IS_GOOD(pa_stream_get_state(m_idle.get()))) {
    m_idle.reset();
  }
}

void PulseOutput::endRunningOut() {
  m_leaving.reset();
  // A stream that is not corked keeps the device awake.
  if (m_idle && pa_stream_get_state(m_idle.get()) == PA_STREAM_READY &&
      pa_stream_is_corked(m_idle.get()) == 0) {
    const PulsePointer<pa_operation> operation(pa_stream_cork(m_idle.get(), 1, nullptr, nullptr));
  }
}

void PulseOutput::dropUnused() {
  if (m_soundIsExpected || (m_holder != nullptr && m_holder->isSounding())) {
    return;
  }
  if (m_holder != nullptr) {
    m_holder->giveUpSound();
  }
  m_idle.reset();
}

}  // namespace mireval
