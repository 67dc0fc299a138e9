#pragma once

#include <functional>

namespace mireval {

/// Hands tasks to the UI thread.
class MainThread {
 public:
  virtual ~MainThread() = default;

  /// Runs `task` later on the UI thread, after its current work and in the order of the calls. Callable on
  /// any thread. Tasks that have not run when the application ends are dropped.
  virtual void async(std::function<void()> task) = 0;
};

}  // namespace mireval
