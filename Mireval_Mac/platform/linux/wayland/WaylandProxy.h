#pragma once

#include <memory>

struct wl_buffer;
struct wl_callback;
struct wl_compositor;
struct wl_pointer;
struct wl_region;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_surface;
struct wl_touch;
struct wp_viewport;
struct wp_viewporter;
struct xdg_popup;
struct xdg_positioner;
struct xdg_surface;
struct xdg_wm_base;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

namespace mireval {

/// Ends an object of a Wayland connection, in the way that its protocol has for that.
struct WaylandProxyDeleter {
  void operator()(wl_buffer* buffer) const;
  void operator()(wl_callback* callback) const;
  void operator()(wl_compositor* compositor) const;
  void operator()(wl_pointer* pointer) const;
  void operator()(wl_region* region) const;
  void operator()(wl_registry* registry) const;
  void operator()(wl_seat* seat) const;
  void operator()(wl_shm* shm) const;
  void operator()(wl_surface* surface) const;
  void operator()(wl_touch* touch) const;
  void operator()(wp_viewport* viewport) const;
  void operator()(wp_viewporter* viewporter) const;
  void operator()(xdg_popup* popup) const;
  void operator()(xdg_positioner* positioner) const;
  void operator()(xdg_surface* surface) const;
  void operator()(xdg_wm_base* popups) const;
  void operator()(zwlr_layer_shell_v1* layers) const;
  void operator()(zwlr_layer_surface_v1* role) const;
};

/// Owns an object of a Wayland connection.
template <typename Object>
using WaylandProxy = std::unique_ptr<Object, WaylandProxyDeleter>;

}  // namespace mireval
