#include "platform/linux/bus/WaitFor.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
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

QDBusMessage waitForAnswer(const QDBusPendingCall& call) {
  const QDBusPendingCallWatcher watcher(call);
  // The signal, since isFinished() is true before the event loop has delivered what came earlier.
  bool finished = watcher.isFinished();
  QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&finished] { finished = true; });
  return waitFor([&finished] { return finished; }) ? watcher.reply() : QDBusMessage();
}

}  // namespace mireval
