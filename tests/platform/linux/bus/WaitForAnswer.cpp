#include "platform/linux/bus/WaitForAnswer.h"

#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace mireval {
namespace {

using namespace std::chrono_literals;

constexpr auto hang = 10s;

}  // namespace

QDBusMessage waitForAnswer(const QDBusPendingCall& call) {
  const QDBusPendingCallWatcher watcher(call);
  if (!watcher.isFinished()) {
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(hang, &loop, &QEventLoop::quit);
    loop.exec();
  }
  return watcher.isFinished() ? watcher.reply() : QDBusMessage();
}

}  // namespace mireval
