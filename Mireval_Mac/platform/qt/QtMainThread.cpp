#include "platform/qt/QtMainThread.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace mireval {
namespace {

// A queued QMetaObject::invokeMethod would share the task with the calling thread, so that thread might be
// the last to release it.
class TaskEvent final : public QEvent {
 public:
  explicit TaskEvent(std::function<void()> task) : QEvent(User), m_task(std::move(task)) {}

  void run() const { m_task(); }

 private:
  const std::function<void()> m_task;
};

}  // namespace

void QtMainThread::Receiver::customEvent(QEvent* event) {
  static_cast<TaskEvent*>(event)->run();
}

void QtMainThread::async(std::function<void()> task) {
  QCoreApplication::postEvent(&m_receiver, new TaskEvent(std::move(task)));
}

}  // namespace mireval
