#include "platform/linux/windows/DisplayServer.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <QByteArray>
#include <QByteArrayList>

#include <sys/socket.h>
#include <xcb/xcb.h>

#include <algorithm>

namespace mireval {
namespace {

bool x11Answers() {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) {
    return false;
  }
  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return answers;
}

bool waylandAnswers() {
  QByteArray path = qgetenv("WAYLAND_DISPLAY");
  if (path.isEmpty()) {
    return false;
  }
  if (!path.startsWith('/')) {
    path = qgetenv("XDG_RUNTIME_DIR") + '/' + path;
  }
  const auto address = unixSocketAddress(path.toStdString());
  const FileDescriptor connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  return address && connection.isOpen() &&
         connect(connection.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0;
}

}  // namespace

bool displayServerAnswers() {
  QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  if (chosen.isEmpty()) {
    chosen = "xcb;wayland";
  }
  const QByteArrayList platforms = chosen.split(';');
  return std::ranges::any_of(platforms, [](const QByteArray& platform) {
    if (platform.startsWith("xcb")) {
      return x11Answers();
    }
    return !platform.startsWith("wayland") || waylandAnswers();
  });
}

}  // namespace mireval
