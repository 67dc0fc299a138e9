#include "platform/linux/audio/PulseOutput.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseStream.h"

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;

/// Longer than the end of a track is on its way when its player is done.
constexpr auto runOutTime = 1s;

void cork(pa_stream& stream) {
  if (pa_stream_get_state(&stream) == PA_STREAM_READY && pa_stream_is_corked(&stream) == 0) {
    const PulsePointer<pa_operation> operation(pa_stream_cork(&stream, 1, nullptr, nullptr));
  }
}

}  // namespace

PulseOutput::PulseOutput(Notices& notices, std::chrono::microseconds kept)
    : m_server(notices),
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
  if (!m_idle && m_holder == nullptr && m_server.readyContext() != nullptr) {
    keepIdle(open(sampleRate));
  }
}

void PulseOutput::serverReady() {
  if (m_soundIsExpected) {
    prepare(m_sampleRate);
  }
}

PulsePointer<pa_stream> PulseOutput::takeFor(Holder& holder, int sampleRate) {
  PulsePointer<pa_stream> stream = m_holder != nullptr ? m_holder->giveUpStream() : std::move(m_idle);
  m_holder = nullptr;
  m_sampleRate = sampleRate;
  if (stream && pa_stream_get_sample_spec(stream.get())->rate != static_cast<std::uint32_t>(sampleRate)) {
    pa_stream_set_state_callback(stream.get(), nullptr, nullptr);
    m_leaving = std::move(stream);
    m_runOutTimer.start(runOutTime);
  }
  if (!stream) {
    stream = open(sampleRate);
  }
  if (stream) {
    m_holder = &holder;
  }
  return stream;
}

void PulseOutput::giveBack(PulsePointer<pa_stream> stream, Content content) {
  m_holder = nullptr;
  if (content == Content::nothing) {
    cork(*stream);
  } else {
    m_runOutTimer.start(runOutTime);
  }
  keepIdle(std::move(stream));
  soundStopped();
}

void PulseOutput::forgetHolder() {
  m_holder = nullptr;
}

PulsePointer<pa_stream> PulseOutput::open(int sampleRate) const {
  return PulseStream::connect(m_server, sampleRate);
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
  if (m_idle) {
    // A stream that is not corked keeps the device awake.
    cork(*m_idle);
  }
}

void PulseOutput::dropUnused() {
  if (m_soundIsExpected || (m_holder != nullptr && m_holder->isSounding())) {
    return;
  }
  m_idle.reset();
  if (m_holder != nullptr) {
    std::exchange(m_holder, nullptr)->giveUpStream();
  }
}

}  // namespace mireval
