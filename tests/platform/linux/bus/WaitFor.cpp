#include "platform/linux/bus/WaitFor.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace mireval {

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.hasExpired(limit.count())) {
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QThread::msleep(1);
  }
  return true;
}

}  // namespace mireval
