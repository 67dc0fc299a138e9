#include "platform/linux/bus/BusSocket.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

namespace mireval {
namespace {

/// As sd-bus finds it.
QByteArray busAddress(bool ofSystem) {
  if (ofSystem) {
    return qEnvironmentVariableIsSet("DBUS_SYSTEM_BUS_ADDRESS") ? qgetenv("DBUS_SYSTEM_BUS_ADDRESS")
                                                                : "unix:path=/run/dbus/system_bus_socket";
  }
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
             ? qgetenv("DBUS_SESSION_BUS_ADDRESS")
             : "unix:path=" + qgetenv("XDG_RUNTIME_DIR").toPercentEncoding("/") + "/bus";
}

}  // namespace

QStringList busSocketFolders(bool ofSystem) {
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

}  // namespace mireval
