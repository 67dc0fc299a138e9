#pragma once

#include "platform/linux/bus/MessageBus.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace mireval {

/// A message bus of the test's own, at an address that stays the same when it is started again. While the
/// object lives, it is the session bus or the system bus of this process.
class PrivateBus {
 public:
  explicit PrivateBus(MessageBus::Kind kind = MessageBus::Kind::session);
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus();

  QString address() const;

  /// Keeps its socket open for it from now on, as systemd does: connections wait while the bus is away. Gives
  /// the socket.
  int holdSocket();
  /// Starts the bus and waits until it takes connections; at an address of its own unless one is given.
  void start(const QString& address = {});
  /// Ends it at once, as a crash would.
  void kill();
  /// Makes it stand still, and go on.
  void freeze() const;
  void thaw() const;

 private:
  const QTemporaryDir m_folder;
  int m_socket = -1;
  QProcess m_daemon;
};

}  // namespace mireval
