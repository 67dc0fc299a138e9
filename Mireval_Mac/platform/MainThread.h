#pragma once

#include <functional>

namespace mireval {

/// The way onto the UI thread.
class MainThread {
 public:
  virtual ~MainThread() = default;

  /// Runs `task` later on the UI thread, after what is being done there now and in the order of the calls.
  /// Callable on any thread. A task that has not run when the application ends is dropped.
  virtual void async(std::function<void()> task) = 0;
};

}  // namespace mireval
