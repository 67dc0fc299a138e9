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

/// Plays the frames of a track, from a given one to the last, on a stream of the sound server, which may have
/// played others before. The buffer is deep, so that the machine can sleep for about a second at a time. Not
/// to be used again once the stream is lost, stalls or has ended. Positions are frame numbers of the track.
/// Everything, also the destructor, needs the server's lock; but for the first, frames are decoded on
/// libpulse's thread, when the server can take them.
class PulseStream {
 public:
  /// Told on libpulse's thread with the lock held. Each call may destroy the stream.
  class Client {
   public:
    /// The server has closed the stream or has gone.
    virtual void streamLost() = 0;
    /// The server has not asked for frames for too long while playing.
    virtual void streamStalled() = 0;
    /// The last frame, which may be where the file cannot be decoded any further, has been heard, or will be
    /// within `endLead`.
    virtual void streamEnded() = 0;

   protected:
    ~Client() = default;
  };

  /// Begins to open a stream, corked, for frames of `sampleRate` Hz. The server must be ready. Returns
  /// nullptr when libpulse refuses.
  static PulsePointer<pa_stream> connect(const PulseServer& server, int sampleRate);

  /// Takes over a stream from `connect` or `release`. `title` is what mixers show. Server, title, frames and
  /// client must outlive this. Starts at `from` or, if that frame is forgotten, at the oldest in `frames`.
  PulseStream(PulseServer& server, PulsePointer<pa_stream> stream, const char* title, FrameHistory& frames,
              std::uint64_t from, float gain, Client& client);

  /// So long before the last frame is heard its end is told, so that frames of the next track can follow at
  /// once.
  static constexpr std::chrono::milliseconds endLead{50};

  /// A server has stalled when its buffer must be empty and it has not asked for frames for this long.
  static constexpr std::chrono::seconds usualPatience{5};

  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;
  ~PulseStream();

  /// Starts or resumes, now or as soon as the server has made the stream. `patience` replaces the usual one
  /// until the stream flows.
  void play(std::chrono::microseconds patience);
  void pause();

  /// Hands the stream over, without frames that are still to be heard unless it has ended. Afterwards this
  /// can only be destroyed.
  PulsePointer<pa_stream> release();

  /// Scales the frames, 0...1. What the server holds already is replaced, so the change is heard at once.
  void setGain(float gain);

  /// The frame that is heard now. Never goes back.
  std::uint64_t heard();
  /// The last answer of `heard`. Once the stream is lost, an estimate; once it has ended, its end.
  std::uint64_t lastHeard() const { return m_heard; }
  /// The last frame that the server itself is known to have played: at most `lastHeard`.
  std::uint64_t confirmed() const;
  /// True once the server has asked for more than the first buffer.
  bool isFlowing() const { return m_next - m_start > framesIn(bufferLength); }

 private:
  using Clock = std::chrono::steady_clock;

  /// How much the server holds for us. It asks for more when half of it has been played.
  static constexpr std::chrono::microseconds bufferLength = std::chrono::seconds(2);

  void stateChanged();
  void begin();
  bool isReady() const { return pa_stream_get_state(m_stream.get()) == PA_STREAM_READY; }
  void updateCork();
  void fill();
  void append(std::uint64_t frames);
  std::optional<std::int64_t> origin() const;
  std::optional<std::int64_t> position() const;
  std::uint64_t write(std::uint64_t position, std::uint64_t frames);
  void drained();
  void watchForStall(std::chrono::microseconds patience);
  void suspectStall();
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
  /// The last known position and its time.
  std::uint64_t m_heard = m_start;
  Clock::time_point m_heardAt;
  /// When the server last told its clock.
  Clock::time_point m_timedAt;
  bool m_stallIsSuspected = false;
  /// Every frame of the file has been written.
  bool m_allWritten = false;
  bool m_hasEnded = false;
  /// When the server had nothing left to play after the last frame was written.
  std::optional<Clock::time_point> m_drainedAt;
  int m_endChecks = 0;
  PulseServer::Timer m_stallTimer;
  PulseServer::Timer m_endTimer;
  const char* const m_title;
  PulsePointer<pa_stream> m_stream;
  PulsePointer<pa_operation> m_timingRequest;
};

}  // namespace mireval
