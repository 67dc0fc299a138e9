#include "platform/linux/DisplayServer.h"

#include <QByteArray>
#include <QByteArrayList>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstring>
#include <string_view>

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
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) {
    return false;
  }
  std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) {
    return false;
  }
  const bool answers = connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(descriptor);
  return answers;
}

QByteArray chosenPlatforms(int argc, char** argv) {
  QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  for (int index = 1; index + 1 < argc; ++index) {
    const std::string_view argument = argv[index];
    if (argument == "-platform" || argument == "--platform") {
      chosen = argv[index + 1];
    }
  }
  return chosen;
}

}  // namespace

bool displayServerAnswers(int argc, char** argv) {
  QByteArray chosen = chosenPlatforms(argc, argv);
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
