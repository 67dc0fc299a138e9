#pragma once

#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>
#include <functional>

namespace mireval {

/// Runs the event loop until the condition holds; false when it does not in time.
bool waitFor(const std::function<bool()>& condition,
             std::chrono::milliseconds limit = std::chrono::seconds(10));

/// Lets the event loop come to rest and runs it for half a second; how often something woke it then.
int wakeUps();

/// Runs the event loop until the answer has come, and with it all that was sent to this process before; an
/// invalid message if it does not come in time.
QDBusMessage waitForAnswer(const QDBusPendingCall& call);

}  // namespace mireval
