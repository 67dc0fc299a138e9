#pragma once

#include "fakes/EventLog.h"
#include "platform/MainThread.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>

namespace mireval {

/// Keeps the tasks until the test runs them, in place of the UI thread.
class FakeMainThread final : public MainThread {
 public:
  explicit FakeMainThread(std::shared_ptr<EventLog> log = makeEventLog());

  void async(std::function<void()> task) override;

  std::size_t pending() const;

  /// Runs and destroys the tasks in order, including those that they add, until none is left.
  void runAll();

  /// Destroys the tasks without running them, as at the end of the application.
  void dropAll();

 private:
  const std::shared_ptr<EventLog> m_log;
  mutable std::mutex m_mutex;
  std::deque<std::function<void()>> m_tasks;
};

}  // namespace mireval
