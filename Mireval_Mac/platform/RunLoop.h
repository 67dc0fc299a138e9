#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace mireval {

/// A repeating timer, running from its creation on.
class RepeatingTimer {
 public:
  virtual ~RepeatingTimer() = default;

  /// Stops the timer for good. May be called more than once.
  virtual void invalidate() = 0;
};

/// The main run loop. It keeps a scheduled timer running until it is invalidated, whether or not somebody
/// still holds it.
class RunLoop {
 public:
  virtual ~RunLoop() = default;

  /// Calls `block` every `interval`, first after one interval, also while a menu or the panel tracks the
  /// pointer. Callable on the UI thread.
  virtual std::shared_ptr<RepeatingTimer> scheduleRepeatingTimer(std::chrono::milliseconds interval,
                                                                 std::function<void()> block) = 0;
};

}  // namespace mireval
