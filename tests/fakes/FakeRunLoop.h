#pragma once

#include "fakes/EventLog.h"
#include "platform/RunLoop.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace mireval {

/// Keeps timers until they are invalidated, held by somebody or not; they fire when the test says so.
/// Events: "runLoop: timer 1 every 500 ms", "runLoop: timer 1 invalidated".
class FakeRunLoop final : public RunLoop {
 public:
  explicit FakeRunLoop(std::shared_ptr<EventLog> log = makeEventLog());

  std::shared_ptr<RepeatingTimer> scheduleRepeatingTimer(std::chrono::milliseconds interval,
                                                         std::function<void()> block) override;

  /// Fires every running timer once, oldest first, on the calling thread.
  void tick() const;

  std::size_t runningTimers() const;

 private:
  class Timer;

  const std::shared_ptr<EventLog> m_log;
  std::vector<std::shared_ptr<Timer>> m_timers;
};

}  // namespace mireval
