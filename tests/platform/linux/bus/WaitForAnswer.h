#pragma once

#include <QDBusMessage>
#include <QDBusPendingCall>

namespace mireval {

/// Runs the event loop until the answer has come, and with it what was sent to this process before; an
/// invalid message if it does not come in time.
QDBusMessage waitForAnswer(const QDBusPendingCall& call);

}  // namespace mireval
