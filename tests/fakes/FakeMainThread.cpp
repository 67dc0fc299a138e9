#include "fakes/FakeMainThread.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeMainThread::FakeMainThread(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

void FakeMainThread::async(std::function<void()> task) {
  m_log->add(u"mainThread: async"_s);
  const std::lock_guard lock(m_mutex);
  m_tasks.push_back(std::move(task));
}

std::size_t FakeMainThread::pending() const {
  const std::lock_guard lock(m_mutex);
  return m_tasks.size();
}

void FakeMainThread::runAll() {
  while (true) {
    std::function<void()> task;
    {
      const std::lock_guard lock(m_mutex);
      if (m_tasks.empty()) {
        return;
      }
      task = std::move(m_tasks.front());
      m_tasks.pop_front();
    }
    task();
  }
}

void FakeMainThread::dropAll() {
  // Destroyed without the lock: the destructors may call back.
  std::deque<std::function<void()>> dropped;
  {
    const std::lock_guard lock(m_mutex);
    dropped.swap(m_tasks);
  }
}

}  // namespace mireval
