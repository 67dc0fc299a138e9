#include "MonitorRecorder.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace mireval::test {
namespace {

using namespace std::chrono_literals;

}  // namespace

std::chrono::milliseconds MonitorRecorder::usualBlock(SoundServer::Kind kind) {
  return kind == SoundServer::Kind::pulseAudio ? 5ms : 40ms;
}

MonitorRecorder::MonitorRecorder(const SoundServer& server, std::chrono::milliseconds block)
    : m_process({"parec", "--raw", "--format=float32le", "--rate=44100", "--channels=2",
                 "--latency-msec=" + std::to_string(block.count()), "-d", "null.monitor"},
                server.environment()),
      m_thread([this] { receive(); }) {
  const auto giveUp = Clock::now() + 10s;
  while (frames() == 0) {
    if (Clock::now() > giveUp) {
      stop();
      throw std::runtime_error("nothing to record");
    }
    std::this_thread::sleep_for(2ms);
  }
}

MonitorRecorder::~MonitorRecorder() {
  stop();
}

void MonitorRecorder::stop() {
  m_process.signal(SIGKILL);
  m_thread.join();
}

void MonitorRecorder::receive() {
  std::array<char, 65536> buffer{};
  std::size_t held = 0;
  ssize_t count = 0;
  while ((count = read(m_process.outputDescriptor(), buffer.data() + held, buffer.size() - held)) > 0) {
    held += static_cast<std::size_t>(count);
    const std::size_t whole = held / sizeof(float);
    const std::lock_guard guard(m_mutex);
    m_blocks.push_back({Clock::now(), m_samples.size()});
    m_samples.resize(m_samples.size() + whole);
    std::memcpy(m_samples.data() + m_samples.size() - whole, buffer.data(), whole * sizeof(float));
    held -= whole * sizeof(float);
    std::memmove(buffer.data(), buffer.data() + whole * sizeof(float), held);
  }
}

Recording MonitorRecorder::recording() const {
  return recordingFrom(0);
}

Recording MonitorRecorder::recordingFrom(std::size_t frames) const {
  const std::lock_guard guard(m_mutex);
  const std::size_t first = std::min(frames * 2, m_samples.size());
  const std::size_t last = m_samples.size() / 2 * 2;
  return {{m_samples.begin() + static_cast<std::ptrdiff_t>(first),
           m_samples.begin() + static_cast<std::ptrdiff_t>(std::max(first, last))}};
}

std::size_t MonitorRecorder::frames() const {
  const std::lock_guard guard(m_mutex);
  return m_samples.size() / 2;
}

std::optional<MonitorRecorder::Clock::time_point> MonitorRecorder::firstSoundAfter(
    Clock::time_point since) const {
  const std::lock_guard guard(m_mutex);
  for (std::size_t i = 0; i < m_blocks.size(); ++i) {
    if (m_blocks[i].arrival < since) {
      continue;
    }
    const std::size_t end = i + 1 < m_blocks.size() ? m_blocks[i + 1].firstSample : m_samples.size();
    for (std::size_t sample = m_blocks[i].firstSample; sample < end; ++sample) {
      if (std::abs(m_samples[sample]) > 1e-4F) {
        return m_blocks[i].arrival;
      }
    }
  }
  return std::nullopt;
}

}  // namespace mireval::test
