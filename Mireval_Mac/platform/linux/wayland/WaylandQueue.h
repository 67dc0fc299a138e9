#pragma once

#include <chrono>
#include <functional>
#include <memory>

struct wl_display;
struct wl_event_queue;

namespace mireval {

/// A queue of events on a Wayland connection, to wait for an answer without handling anything else meanwhile.
class WaylandQueue final {
 public:
  /// The connection must outlive the queue. Before the queue ends, its objects do, or are handed over.
  explicit WaylandQueue(wl_display* connection);

  /// A stand-in for an object of the connection: what is made with it uses this queue from the beginning.
  template <typename Object>
  struct StandIn {
    void operator()(Object* object) const;
  };
  template <typename Object>
  std::unique_ptr<Object, StandIn<Object>> standInFor(Object* object) const {
    return std::unique_ptr<Object, StandIn<Object>>(static_cast<Object*>(makeStandIn(object)));
  }

  /// Handles events of this queue until `done` says so. False if it does not within `patience`, or if the
  /// connection has failed.
  bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds patience) const;

  /// Waits until the server has handled all requests so far. Otherwise as `waitUntil`.
  bool roundTrip(std::chrono::milliseconds patience) const;

  /// From now on, the application handles the object's events.
  void handOver(void* object) const;

 private:
  struct Deleter {
    void operator()(wl_event_queue* queue) const;
  };

  void* makeStandIn(void* object) const;
  static void destroyStandIn(void* object);

  wl_display* m_connection;
  std::unique_ptr<wl_event_queue, Deleter> m_queue;
};

template <typename Object>
void WaylandQueue::StandIn<Object>::operator()(Object* object) const {
  WaylandQueue::destroyStandIn(object);
}

}  // namespace mireval
