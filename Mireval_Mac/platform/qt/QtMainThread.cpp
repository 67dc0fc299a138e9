#include "platform/qt/QtMainThread.h"

#include <QCoreApplication>
#include <QEvent>

#include <atomic>
#include <utility>

namespace mireval {
namespace {

// An event of its own rather than a queued QMetaObject::invokeMethod: that shares the task with the calling
// thread, which may be the one to release it.
class TaskEvent final : public QEvent {
 public:
  explicit TaskEvent(std::function<void()> task) : QEvent(User), m_task(std::move(task)) {
    m_complete.store(true, std::memory_order_release);
  }

  ~TaskEvent() override { m_complete.load(std::memory_order_acquire); }
  Q_DISABLE_COPY_MOVE(TaskEvent)

  void run() const {
    m_complete.load(std::memory_order_acquire);
    m_task();
  }

 private:
  const std::function<void()> m_task;
  // Qt's event queue orders the threads already; the thread sanitizer cannot see that inside Qt.
  std::atomic<bool> m_complete = false;
};

}  // namespace

void QtMainThread::Receiver::customEvent(QEvent* event) {
  static_cast<TaskEvent*>(event)->run();
}

void QtMainThread::async(std::function<void()> task) {
  QCoreApplication::postEvent(&m_receiver, new TaskEvent(std::move(task)));
}

}  // namespace mireval
