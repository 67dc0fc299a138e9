#include "platform/linux/windows/DisplayServer.h"

#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/wayland/WaylandProxy.h"
#include "platform/linux/wayland/WaylandQueue.h"

#include <QByteArray>
#include <QByteArrayList>

#include <wayland-client.h>
#include <xcb/xcb.h>

#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace mireval {
namespace {

enum class Answer { yes, no, notInTime };

bool x11Answers(const QByteArray& display) {
  int screen = 0;
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
      xcb_connect(display.constData(), &screen), &xcb_disconnect);
  // That is an error, too, if the display has no such screen.
  return xcb_connection_has_error(connection.get()) == 0;
}

/// The call has no time limit. A silent server keeps the thread until it answers or the process ends. A child
/// process would be slower: the system copies the tables of all our memory for it.
Answer askX11(std::chrono::seconds patience) {
  const QByteArray display = qgetenv("DISPLAY");
  if (display.isEmpty()) {
    return Answer::no;
  }
  std::promise<bool> promise;
  std::future<bool> answers = promise.get_future();
  std::thread([display, promise = std::move(promise)]() mutable {
    promise.set_value(x11Answers(display));
  }).detach();
  if (answers.wait_for(patience) != std::future_status::ready) {
    return Answer::notInTime;
  }
  return answers.get() ? Answer::yes : Answer::no;
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
