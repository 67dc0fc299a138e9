#include "platform/linux/bus/PrivateBus.h"

#include <QFile>
#include <QtGlobal>

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>
#include <unistd.h>
#include <csignal>

namespace mireval {

using namespace Qt::StringLiterals;

PrivateBus::PrivateBus(MessageBus::Kind kind) {
  qputenv(kind == MessageBus::Kind::system ? "DBUS_SYSTEM_BUS_ADDRESS" : "DBUS_SESSION_BUS_ADDRESS",
          address().toUtf8());
}

PrivateBus::~PrivateBus() {
  kill();
  if (m_socket >= 0) {
    ::close(m_socket);
  }
}

QString PrivateBus::address() const {
  return u"unix:path="_s + m_folder.filePath(u"bus"_s);
}

int PrivateBus::holdSocket() {
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  qstrncpy(name.sun_path, QFile::encodeName(m_folder.filePath(u"bus"_s)), sizeof(name.sun_path));
  m_socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  const auto* const address = reinterpret_cast<const sockaddr*>(&name);
  if (::bind(m_socket, address, sizeof(name)) != 0 || ::listen(m_socket, SOMAXCONN) != 0) {
    qFatal("no socket for the bus");
  }
  return m_socket;
}

void PrivateBus::start(const QString& address) {
  const QStringList command{u"dbus-daemon"_s, u"--session"_s, u"--nofork"_s, u"--print-address"_s};
  if (m_socket >= 0) {
    const QString handOver = u"LISTEN_FDS=1 LISTEN_PID=$$ exec \"$@\" 3<&%1"_s.arg(m_socket);
    m_daemon.start(u"sh"_s,
                   QStringList{u"-c"_s, handOver, u"sh"_s} + command + QStringList{u"--address=systemd:"_s});
  } else {
    QFile::remove(m_folder.filePath(u"bus"_s));
    m_daemon.start(
        command.first(),
        command.mid(1) + QStringList{u"--address="_s + (address.isEmpty() ? this->address() : address)});
  }
  // It prints its address once it listens.
  if (!m_daemon.waitForReadyRead()) {
    qFatal("dbus-daemon does not start");
  }
}

void PrivateBus::kill() {
  m_daemon.kill();
  m_daemon.waitForFinished();
}

void PrivateBus::freeze() const {
  ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PrivateBus::thaw() const {
  ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

}  // namespace mireval
