#include "platform/linux/bus/WaitFor.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <algorithm>

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

int wakeUps() {
  // What is still to be done is done before.
  waitFor([] { return false; }, std::chrono::milliseconds(100));
  int turns = 0;
  QEventLoop loop;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                   [&turns] { ++turns; });
  QTimer::singleShot(std::chrono::milliseconds(500), &loop, &QEventLoop::quit);
  loop.exec();
  // The first and the last are the loop's own; a third may be.
  return std::max(turns - 3, 0);
}

QDBusMessage waitForAnswer(const QDBusPendingCall& call) {
  const QDBusPendingCallWatcher watcher(call);
  // The signal, since isFinished() is true before the event loop has delivered what came earlier.
  bool finished = watcher.isFinished();
  QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&finished] { finished = true; });
  return waitFor([&finished] { return finished; }) ? watcher.reply() : QDBusMessage();
}

}  // namespace mireval
