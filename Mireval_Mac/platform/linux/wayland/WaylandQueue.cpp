#include "platform/linux/wayland/WaylandQueue.h"

#include "platform/linux/wayland/WaylandProxy.h"

#include <poll.h>
#include <wayland-client.h>

#include <algorithm>
#include <cerrno>

namespace mireval {

void WaylandQueue::Deleter::operator()(wl_event_queue* queue) const {
  wl_event_queue_destroy(queue);
}

WaylandQueue::WaylandQueue(wl_display* connection)
    : m_connection(connection), m_queue(wl_display_create_queue(connection)) {}

void* WaylandQueue::makeStandIn(void* object) const {
  void* const standIn = wl_proxy_create_wrapper(object);
  wl_proxy_set_queue(static_cast<wl_proxy*>(standIn), m_queue.get());
  return standIn;
}

void WaylandQueue::destroyStandIn(void* object) {
  wl_proxy_wrapper_destroy(object);
}

bool WaylandQueue::waitUntil(const std::function<bool()>& done, std::chrono::milliseconds patience) const {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point limit = Clock::now() + patience;
  while (!done()) {
    if (wl_display_prepare_read_queue(m_connection, m_queue.get()) != 0) {
      if (wl_display_dispatch_queue_pending(m_connection, m_queue.get()) < 0) {
        return false;
      }
      continue;
    }
    wl_display_flush(m_connection);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(limit - Clock::now());
    pollfd readable{.fd = wl_display_get_fd(m_connection), .events = POLLIN, .revents = 0};
    const int ready = poll(&readable, 1, static_cast<int>(std::max(left.count(), decltype(left)::rep{0})));
    if (ready <= 0) {
      wl_display_cancel_read(m_connection);
      if (ready < 0 && errno == EINTR) {
        continue;
      }
      return false;
    }
    if (wl_display_read_events(m_connection) < 0 ||
        wl_display_dispatch_queue_pending(m_connection, m_queue.get()) < 0) {
      return false;
    }
  }
  return true;
}

bool WaylandQueue::roundTrip(std::chrono::milliseconds patience) const {
  const auto display = standInFor(m_connection);
  const WaylandProxy<wl_callback> answer(wl_display_sync(display.get()));
  bool answered = false;
  constexpr static wl_callback_listener listener{
      .done = [](void* data, wl_callback*, std::uint32_t) { *static_cast<bool*>(data) = true; }};
  wl_callback_add_listener(answer.get(), &listener, &answered);
  return waitUntil([&answered] { return answered; }, patience);
}

void WaylandQueue::handOver(void* object) const {
  wl_proxy_set_queue(static_cast<wl_proxy*>(object), nullptr);
  // What has arrived meanwhile.
  wl_display_dispatch_queue_pending(m_connection, m_queue.get());
}

}  // namespace mireval
