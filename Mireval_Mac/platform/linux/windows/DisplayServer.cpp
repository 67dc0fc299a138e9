#include "platform/linux/windows/DisplayServer.h"

#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/wayland/WaylandProxy.h"
#include "platform/linux/wayland/WaylandQueue.h"

#include <QByteArray>
#include <QByteArrayList>

#include <sys/wait.h>
#include <unistd.h>
#include <wayland-client.h>
#include <xcb/xcb.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <optional>

namespace mireval {
namespace {

enum class Answer { yes, no, notInTime };

bool x11Answers() {
  int screen = 0;
  xcb_connection_t* const connection = xcb_connect(nullptr, &screen);
  // That is an error, too, if the display has no such screen.
  return xcb_connection_has_error(connection) == 0;
}

/// In a child process, which a signal ends where the server is silent: the call itself has no time limit.
Answer askX11(std::chrono::seconds patience) {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) {
    return Answer::no;
  }
  const pid_t child = fork();
  if (child < 0) {
    return x11Answers() ? Answer::yes : Answer::no;
  }
  if (child == 0) {
    std::signal(SIGALRM, SIG_DFL);
    sigset_t alarmOnly{};
    sigemptyset(&alarmOnly);
    sigaddset(&alarmOnly, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &alarmOnly, nullptr);
    alarm(static_cast<unsigned int>(patience.count()));
    _exit(x11Answers() ? 0 : 1);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) {
      // Somebody made the system forget the exit status of children.
      return x11Answers() ? Answer::yes : Answer::no;
    }
  }
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) {
    return Answer::notInTime;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Answer::yes : Answer::no;
}

struct WaylandAnswer {
  Answer answer = Answer::no;
  bool hasLayers = false;
};

WaylandAnswer askWayland(std::chrono::seconds patience) {
  if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) {
    // Somebody has connected for us, once; that is for Qt.
    return {.answer = Answer::yes};
  }
  if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    return {};
  }
  const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> connection(wl_display_connect(nullptr),
                                                                                 &wl_display_disconnect);
  if (!connection) {
    return {};
  }
  QByteArrayList interfaces;
  const WaylandQueue queue(connection.get());
  const WaylandProxy<wl_registry> registry(wl_display_get_registry(queue.standInFor(connection.get()).get()));
  static constexpr wl_registry_listener listener{
      .global = [](void* list, wl_registry*, std::uint32_t, const char* interface,
                   std::uint32_t) { static_cast<QByteArrayList*>(list)->append(interface); },
      .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
  wl_registry_add_listener(registry.get(), &listener, &interfaces);
  if (!queue.roundTrip(patience)) {
    return {.answer = wl_display_get_error(connection.get()) == 0 ? Answer::notInTime : Answer::no};
  }
  return {.answer = Answer::yes, .hasLayers = LayerShell::isAmong(interfaces)};
}

}  // namespace

UsableDisplays findUsableDisplays(const QByteArray& platforms, std::chrono::seconds patience) {
  UsableDisplays displays;
  std::optional<WaylandAnswer> wayland;
  const auto waylandOnce = [&] { return *(wayland ? wayland : wayland = askWayland(patience)); };
  QByteArrayList left = platforms.split(';');
  if (platforms.isEmpty()) {
    left = waylandOnce().hasLayers ? QByteArrayList{"wayland", "xcb"} : QByteArrayList{"xcb", "wayland"};
  }
  while (!left.isEmpty()) {
    const QByteArray& platform = left.constFirst();
    Answer answer = Answer::yes;
    if (platform.startsWith("xcb")) {
      answer = askX11(patience);
      displays.x11IsSilent |= answer == Answer::notInTime;
    } else if (platform.startsWith("wayland")) {
      answer = waylandOnce().answer;
      displays.waylandIsSilent |= answer == Answer::notInTime;
      displays.hasLayers = waylandOnce().hasLayers;
    }
    if (answer == Answer::yes) {
      break;
    }
    left.removeFirst();
  }
  displays.platforms = left.join(';');
  return displays;
}

}  // namespace mireval
