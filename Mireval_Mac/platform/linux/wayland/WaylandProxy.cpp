#include "platform/linux/wayland/WaylandProxy.h"

#include <layer-shell-client-protocol.h>
#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <xdg-popup-client-protocol.h>

namespace mireval {

void WaylandProxyDeleter::operator()(wl_buffer* buffer) const {
  wl_buffer_destroy(buffer);
}

void WaylandProxyDeleter::operator()(wl_callback* callback) const {
  wl_callback_destroy(callback);
}

void WaylandProxyDeleter::operator()(wl_compositor* compositor) const {
  wl_compositor_destroy(compositor);
}

void WaylandProxyDeleter::operator()(wl_pointer* pointer) const {
  wl_pointer_destroy(pointer);
}

void WaylandProxyDeleter::operator()(wl_region* region) const {
  wl_region_destroy(region);
}

void WaylandProxyDeleter::operator()(wl_registry* registry) const {
  wl_registry_destroy(registry);
}

void WaylandProxyDeleter::operator()(wl_seat* seat) const {
  wl_seat_destroy(seat);
}

void WaylandProxyDeleter::operator()(wl_shm* shm) const {
  wl_shm_destroy(shm);
}

void WaylandProxyDeleter::operator()(wl_surface* surface) const {
  wl_surface_destroy(surface);
}

void WaylandProxyDeleter::operator()(wl_touch* touch) const {
  wl_touch_destroy(touch);
}

void WaylandProxyDeleter::operator()(wp_viewport* viewport) const {
  wp_viewport_destroy(viewport);
}

void WaylandProxyDeleter::operator()(wp_viewporter* viewporter) const {
  wp_viewporter_destroy(viewporter);
}

void WaylandProxyDeleter::operator()(xdg_popup* popup) const {
  xdg_popup_destroy(popup);
}

void WaylandProxyDeleter::operator()(xdg_positioner* positioner) const {
  xdg_positioner_destroy(positioner);
}

void WaylandProxyDeleter::operator()(xdg_surface* surface) const {
  xdg_surface_destroy(surface);
}

void WaylandProxyDeleter::operator()(xdg_wm_base* popups) const {
  xdg_wm_base_destroy(popups);
}

void WaylandProxyDeleter::operator()(zwlr_layer_shell_v1* layers) const {
  // An older one has no request for it.
  if (zwlr_layer_shell_v1_get_version(layers) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION) {
    zwlr_layer_shell_v1_destroy(layers);
  } else {
    wl_proxy_destroy(reinterpret_cast<wl_proxy*>(layers));
  }
}

void WaylandProxyDeleter::operator()(zwlr_layer_surface_v1* role) const {
  zwlr_layer_surface_v1_destroy(role);
}

}  // namespace mireval
