#pragma once

#include "platform/linux/audio/PulsePointer.h"

#include <chrono>
#include <functional>
#include <vector>

namespace mireval {

class Notices;

/// The connection to the sound server, and the one thread on which libpulse works. All players share it.
///
/// Everything but the constructor and the destructor needs the lock: hold a `Lock` on any other thread; on
/// libpulse's own thread, inside a callback, it is held already. The lock is never held while waiting for
/// the server, so taking it takes at most as long as decoding a buffer.
class PulseServer {
 public:
  /// Holds the lock. Not for libpulse's own thread.
  class Lock {
   public:
    explicit Lock(PulseServer& server);
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock();

   private:
    PulseServer& m_server;
  };

  /// Told about the connection with the lock held, but not about a failure that `connect` returns. Ready is
  /// told again when an awaited sink has come. A call must not add or remove a client.
  class Client {
   public:
    virtual void serverReady() = 0;
    virtual void serverLost() = 0;

   protected:
    ~Client() = default;
  };

  /// Calls a function once, after a delay, on libpulse's thread with the lock held. The function may destroy
  /// the timer. The destructor needs the lock.
  class Timer {
   public:
    Timer(PulseServer& server, std::function<void()> action);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    /// Starts the timer, or starts it anew.
    void start(std::chrono::microseconds delay);
    void stop();
    bool isRunning() const { return m_event != nullptr; }

   private:
    pa_mainloop_api& m_api;
    std::function<void()> m_action;
    pa_time_event* m_event = nullptr;
  };

  /// Nullptr when the process has no descriptors left.
  static PulsePointer<pa_threaded_mainloop> makeMainloop();

  PulseServer(PulsePointer<pa_threaded_mainloop> mainloop, Notices& notices);
  PulseServer(const PulseServer&) = delete;
  PulseServer& operator=(const PulseServer&) = delete;
  /// Players and timers must be gone by now.
  ~PulseServer();

  /// Begins to connect unless that is done or under way. False when no server can be reached. True says only
  /// that a server may answer: a frozen one does not.
  bool connect();

  /// Sound is wanted, and there is no server: says so, and lets libpulse start one where the user's
  /// configuration tells it to. Does both once until a server is there.
  void askForServer();

  /// The clients are told when the server, which must be ready, gets a new sink, until as many calls of
  /// `awaitNoSink` have followed.
  void awaitSink();
  void awaitNoSink();

  /// The connection when it is ready, else nullptr.
  pa_context* readyContext() const;

  /// libpulse's loop, for events of others.
  pa_mainloop_api& loop() { return *pa_threaded_mainloop_get_api(m_mainloop.get()); }

  void addClient(Client& client);
  void removeClient(Client& client);

 private:
  void contextStateChanged();
  void tellReady();

  Notices& m_notices;
  const PulsePointer<pa_threaded_mainloop> m_mainloop;
  // Guarded by the lock.
  PulsePointer<pa_context> m_context;
  std::vector<Client*> m_clients;
  bool m_hasAskedForServer = false;
  int m_sinkAwaiters = 0;
};

}  // namespace mireval
