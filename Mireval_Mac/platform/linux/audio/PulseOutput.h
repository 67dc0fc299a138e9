#pragma once

#include "platform/linux/audio/PulsePointer.h"
#include "platform/linux/audio/PulseServer.h"

#include <chrono>

namespace mireval {

class Notices;

/// The connection to the sound server and the one stream on it, which passes from player to player, because a
/// stream that exists sounds much sooner than a new one. While sound is expected, a silent stream is ready.
/// Nothing is kept once no sound is expected and none was heard for a while.
///
/// Everything but the constructor, the destructor and `server` needs the server's lock.
class PulseOutput final : private PulseServer::Client {
 public:
  /// Whose sound it is. Called with the lock held.
  class Holder {
   public:
    /// Stops playing and gives its stream back, if it has one.
    virtual void giveUpSound() = 0;
    virtual bool isSounding() const = 0;

   protected:
    ~Holder() = default;
  };

  /// `mainloop` is one of `PulseServer`. The notices must outlive this. When no sound is expected, a stream
  /// that nobody plays on is kept for `kept`.
  PulseOutput(PulsePointer<pa_threaded_mainloop> mainloop, Notices& notices, std::chrono::microseconds kept);
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;
  /// Holders must be gone by now.
  virtual ~PulseOutput();

  PulseServer& server() { return m_server; }

  /// Sound may be wanted at any moment: connects, and keeps a stream ready from now on. Does not wait.
  void expectSound();
  void expectNoSound();

  /// Begins to open a stream unless there is one, or no server yet. Frames have `sampleRate` Hz.
  void prepare(int sampleRate);

  /// The sound is `holder`'s from now on; another one has to give it up.
  void claimSound(Holder& holder);
  /// Nothing is heard from now on until a holder plays again.
  void soundStopped();
  /// The holder, if it is the one, is about to go.
  void forgetHolder(const Holder& holder);

  /// The stream, which may be corked or not, and may still be opening. Nullptr when libpulse refuses. The
  /// server must be ready, and the stream not be taken.
  PulsePointer<pa_stream> take(int sampleRate);
  /// What the stream still contains is heard.
  void giveBack(PulsePointer<pa_stream> stream);
  /// The stream that was taken is gone.
  void streamLost();

 private:
  void serverReady() override;
  void serverLost() override {}

  void keepIdle(PulsePointer<pa_stream> stream);
  void idleStateChanged();
  void endRunningOut();
  void dropUnused();

  PulseServer m_server;
  const std::chrono::microseconds m_kept;

  // Everything below is guarded by the server's lock.
  bool m_soundIsExpected = false;
  /// As in the last file, and in the files that ship.
  int m_sampleRate = 44100;
  Holder* m_holder = nullptr;
  bool m_isTaken = false;
  /// Open, or about to be, and not taken.
  PulsePointer<pa_stream> m_idle;
  /// Of another sample rate than is needed now; may still play the end of a track.
  PulsePointer<pa_stream> m_leaving;
  PulseServer::Timer m_runOutTimer;
  PulseServer::Timer m_dropTimer;
};

}  // namespace mireval
