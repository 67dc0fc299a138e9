#pragma once

#include "ChildProcess.h"
#include "Recording.h"
#include "SoundServer.h"

#include <chrono>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace mireval::test {

/// Records what the null sink of a server plays, from its construction on.
class MonitorRecorder {
 public:
  using Clock = std::chrono::steady_clock;

  /// Returns once the first samples have arrived. Throws when none do within ten seconds.
  explicit MonitorRecorder(const SoundServer& server) : MonitorRecorder(server, usualBlock(server.kind())) {}
  /// Asks the server for blocks of this length. PipeWire's whole graph runs at the pace of its most demanding
  /// client, and drops blocks when a busy machine cannot keep it.
  MonitorRecorder(const SoundServer& server, std::chrono::milliseconds block);
  MonitorRecorder(const MonitorRecorder&) = delete;
  MonitorRecorder& operator=(const MonitorRecorder&) = delete;
  ~MonitorRecorder();

  /// What has been recorded so far.
  Recording recording() const;
  /// What was recorded after the first `frames` frames.
  Recording recordingFrom(std::size_t frames) const;
  std::size_t frames() const;

  /// When the first audible sample after `since` arrived here.
  std::optional<Clock::time_point> firstSoundAfter(Clock::time_point since) const;

 private:
  struct Block {
    Clock::time_point arrival;
    std::size_t firstSample;
  };

  static std::chrono::milliseconds usualBlock(SoundServer::Kind kind);
  void receive();
  void stop();

  ChildProcess m_process;
  mutable std::mutex m_mutex;
  std::vector<float> m_samples;
  std::vector<Block> m_blocks;
  std::thread m_thread;
};

}  // namespace mireval::test
