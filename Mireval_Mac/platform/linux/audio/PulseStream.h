#pragma once

#include "platform/linux/audio/FrameHistory.h"
#include "platform/linux/audio/GainRamp.h"
#include "platform/linux/audio/PulsePointer.h"
#include "platform/linux/audio/PulseServer.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace mireval {

/// One stream to the sound server. It plays the frames of a track from a given one to the last, with a deep
/// buffer, so that the machine can sleep for about a second at a time. Not to be used again once it is lost,
/// stalls or has ended. Positions are frame numbers of the track. Everything, also the destructor, needs the
/// server's lock; frames are decoded when the server asks for them, on libpulse's thread.
class PulseStream {
 public:
  /// Told on libpulse's thread with the lock held. Each call may destroy the stream.
  class Client {
   public:
    /// The server has closed the stream or has gone.
    virtual void streamLost() = 0;
    /// The server has not asked for frames for too long while playing.
    virtual void streamStalled() = 0;
    /// The last frame has been heard, or the file cannot be decoded any further.
    virtual void streamEnded() = 0;

   protected:
    ~Client() = default;
  };

  /// Begins to open a stream that is silent until `play`. `title` is what mixers show. The server must be
  /// ready; server, frames and client must outlive the stream. Starts at `from` or, if that frame is
  /// forgotten, at the oldest in `frames`. Returns nullptr when libpulse refuses.
  static std::unique_ptr<PulseStream> open(PulseServer& server, const char* title, FrameHistory& frames,
                                           std::uint64_t from, float gain, Client& client);

  /// A server has stalled when its buffer must be empty and it has not asked for frames for this long.
  static constexpr std::chrono::seconds usualPatience{5};

  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;
  ~PulseStream();

  /// Starts or resumes, now or as soon as the server has made the stream. `patience` replaces the usual one
  /// until the stream flows.
  void play(std::chrono::microseconds patience);
  void pause();

  /// Scales the frames, 0...1. What the server holds already is replaced, so the change is heard at once.
  void setGain(float gain);

  /// The frame that is heard now. Never goes back.
  std::uint64_t heard();
  /// The last answer of `heard`. Once the stream is lost, an estimate; once it has ended, its end.
  std::uint64_t lastHeard() const { return m_heard; }
  /// The last frame that the server itself is known to have played: at most `lastHeard`.
  std::uint64_t confirmed() const;
  /// True once the server has asked for more than the first buffer.
  bool isFlowing() const { return m_fills > 1; }

 private:
  using Clock = std::chrono::steady_clock;

  PulseStream(PulseServer& server, const char* title, FrameHistory& frames, std::uint64_t from, float gain,
              Client& client);
  void stateChanged();
  bool isReady() const { return pa_stream_get_state(m_stream.get()) == PA_STREAM_READY; }
  void updateCork();
  void fill();
  std::uint64_t write(std::uint64_t position, std::uint64_t frames);
  void drained();
  void requestTiming();
  void timingArrived();
  std::uint64_t framesIn(std::chrono::microseconds time) const {
    return static_cast<std::uint64_t>(time.count() * m_sampleRate / 1'000'000);
  }

  FrameHistory& m_frames;
  Client& m_client;
  const int m_sampleRate;
  const std::uint64_t m_start;
  /// The next frame to be written.
  std::uint64_t m_next = m_start;
  GainRamp m_gain;
  bool m_playing = false;
  std::chrono::microseconds m_patience{};
  int m_fills = 0;
  /// The last known position and its time.
  std::uint64_t m_heard = m_start;
  Clock::time_point m_heardAt;
  /// Every frame of the file has been written.
  bool m_allWritten = false;
  /// When the server had nothing left to play after the last frame was written.
  std::optional<Clock::time_point> m_drainedAt;
  int m_endChecks = 0;
  PulseServer::Timer m_stallTimer;
  PulseServer::Timer m_endTimer;
  PulsePointer<pa_stream> m_stream;
  PulsePointer<pa_operation> m_timingRequest;
};

}  // namespace mireval
