#pragma once

#include "platform/AudioPlayer.h"
#include "platform/linux/audio/FrameHistory.h"
#include "platform/linux/audio/GainRamp.h"
#include "platform/linux/audio/PulseServer.h"

#include <pulse/operation.h>
#include <pulse/stream.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace mireval {

/// Plays one file through the sound server, by a stream with a deep buffer, so that the machine can sleep
/// for about a second at a time.
///
/// Frames are decoded when the server asks for them, on libpulse's thread. A lost stream is made anew, with
/// growing pauses between the attempts, and goes on at the frame that was heard last. The volume scales the
/// samples: what is in the server's buffer is rewritten, and the server's own volume is left to the user.
class PulseAudioPlayer final : public AudioPlayer, private PulseServer::Client {
 public:
  /// `decoder` is at the start of `file`, which is opened again for a second play-through.
  PulseAudioPlayer(std::shared_ptr<PulseServer> server, std::filesystem::path file,
                   std::unique_ptr<AudioDecoder> decoder);
  PulseAudioPlayer(const PulseAudioPlayer&) = delete;
  PulseAudioPlayer& operator=(const PulseAudioPlayer&) = delete;
  ~PulseAudioPlayer() override;

  void setDelegate(AudioPlayerDelegate* delegate) override;
  void setVolume(float volume) override;
  float volume() const override;
  void prepareToPlay() override;
  void play() override;
  void pause() override;
  bool isPlaying() const override;
  double duration() const override { return m_durationSeconds; }
  double currentTime() const override;

 private:
  using Clock = std::chrono::steady_clock;

  enum class State { paused, playing, finished };

  struct StreamDeleter {
    void operator()(pa_stream* stream) const;
  };

  void serverReady() override;
  void serverLost() override;

  /// Getting a stream and losing it.
  void openStream(std::uint64_t from);
  void dropStream();
  void streamStateChanged();
  void streamLost();
  void retry();
  void scheduleRetry();
  void checkStall();
  std::chrono::microseconds stallPatience() const;

  /// Feeding the stream.
  void fill();
  void rewriteUnheard(float volume);
  std::size_t write(std::uint64_t position, std::uint64_t frames, std::int64_t offsetBytes,
                    pa_seek_mode_t seek);
  void setCorked(bool corked);

  /// Knowing what is heard.
  void requestTiming();
  void timingArrived();
  void updateHeard() const;
  void waitForEnd();
  void finish(bool successfully);
  bool rewind();

  bool streamIsReady() const;
  std::uint64_t framesIn(std::chrono::microseconds time) const;
  std::chrono::microseconds timeOf(std::uint64_t frames) const;

  const std::shared_ptr<PulseServer> m_server;
  const std::filesystem::path m_file;
  const int m_sampleRate;
  const double m_durationSeconds;

  // Everything below is guarded by the server's lock.
  std::unique_ptr<FrameHistory> m_frames;
  AudioPlayerDelegate* m_delegate = nullptr;
  State m_state = State::paused;
  GainRamp m_gain{1};

  std::unique_ptr<pa_stream, StreamDeleter> m_stream;
  pa_operation* m_timingRequest = nullptr;
  /// Frame number of the stream's first frame, and of the next one to be written to it.
  std::uint64_t m_streamStart = 0;
  std::uint64_t m_nextFrame = 0;
  /// Up to here the stream holds frames at an earlier volume, which are written again.
  std::uint64_t m_rewriteEnd = 0;
  /// Every frame of the file has been written to the stream.
  bool m_allWritten = false;
  /// When the server had nothing left to play, if that happened after the last frame was written.
  std::optional<Clock::time_point> m_drainedAt;
  int m_fillsOfStream = 0;
  int m_failedAttempts = 0;
  int m_endChecks = 0;

  /// The last known position of what is heard, and when it was known. Never goes back.
  mutable std::uint64_t m_heard = 0;
  mutable Clock::time_point m_heardAt;

  PulseServer::Timer m_retryTimer;
  PulseServer::Timer m_endTimer;
  PulseServer::Timer m_stallTimer;
  PulseServer::Timer m_rewriteTimer;
};

}  // namespace mireval
