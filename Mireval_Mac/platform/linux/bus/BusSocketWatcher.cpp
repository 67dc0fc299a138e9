#include "platform/linux/bus/BusSocketWatcher.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace mireval {
namespace {

/// Where sd-bus looks for the bus.
QByteArray busAddress(bool ofSystem) {
  if (ofSystem) {
    return qEnvironmentVariableIsSet("DBUS_SYSTEM_BUS_ADDRESS") ? qgetenv("DBUS_SYSTEM_BUS_ADDRESS")
                                                                : "unix:path=/run/dbus/system_bus_socket";
  }
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
             ? qgetenv("DBUS_SESSION_BUS_ADDRESS")
             : "unix:path=" + qgetenv("XDG_RUNTIME_DIR").toPercentEncoding("/") + "/bus";
}

QStringList socketFolders(bool ofSystem) {
  QStringList folders;
  for (const QByteArray& address : busAddress(ofSystem).split(';')) {
    for (const QByteArray& part : address.mid(address.indexOf(':') + 1).split(',')) {
      if (address.startsWith("unix:") && part.startsWith("path=")) {
        const QByteArray path = QByteArray::fromPercentEncoding(part.mid(part.indexOf('=') + 1));
        folders.append(QFileInfo(QFile::decodeName(path)).path());
      }
    }
  }
  return folders;
}

}  // namespace

bool BusSocketWatcher::start(bool ofSystem) {
  if (m_watcher && !m_watcher->directories().isEmpty()) {
    return false;
  }
  m_watcher.emplace();
  connect(&*m_watcher, &QFileSystemWatcher::directoryChanged, this, &BusSocketWatcher::changed);
  for (const QString& folder : socketFolders(ofSystem)) {
    m_watcher->addPath(folder);
  }
  return !m_watcher->directories().isEmpty();
}

}  // namespace mireval
