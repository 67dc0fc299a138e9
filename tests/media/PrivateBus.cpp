#include "media/PrivateBus.h"

#include <QFile>
#include <QtGlobal>

#include <sys/types.h>
#include <csignal>

namespace mireval {

using namespace Qt::StringLiterals;

PrivateBus::PrivateBus() {
  qputenv("DBUS_SESSION_BUS_ADDRESS", address().toUtf8());
}

PrivateBus::~PrivateBus() {
  kill();
}

QString PrivateBus::address() const {
  return u"unix:path="_s + m_folder.filePath(u"bus"_s);
}

void PrivateBus::start() {
  QFile::remove(m_folder.filePath(u"bus"_s));
  m_daemon.start(u"dbus-daemon"_s,
                 {u"--session"_s, u"--nofork"_s, u"--print-address"_s, u"--address="_s + address()});
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
