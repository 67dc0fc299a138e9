#include "platform/linux/wayland/PopupProbe.h"

#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/WaylandQueue.h"

#include <wayland-client.h>
#include <xdg-popup-client-protocol.h>

namespace mireval {

struct PopupProbe::Listener {
  static void configure(void* data, xdg_popup*, std::int32_t x, std::int32_t y, std::int32_t width,
                        std::int32_t height) {
    static_cast<PopupProbe*>(data)->m_area = QRect(x, y, width, height);
  }

  static void done(void*, xdg_popup*) {}

  static constexpr xdg_popup_listener table{.configure = &configure, .popup_done = &done};
};

PopupProbe::PopupProbe(wl_compositor* compositor, xdg_wm_base* popups, const LayerSurface& layer, QSize size)
    : m_surface(wl_compositor_create_surface(compositor)),
      m_popupSurface(xdg_wm_base_get_xdg_surface(popups, m_surface.get())) {
  const WaylandProxy<xdg_positioner> positioner(xdg_wm_base_create_positioner(popups));
  xdg_positioner_set_size(positioner.get(), size.width(), size.height());
  xdg_positioner_set_anchor_rect(positioner.get(), 0, 0, 1, 1);
  xdg_positioner_set_anchor(positioner.get(), XDG_POSITIONER_ANCHOR_TOP_LEFT);
  xdg_positioner_set_gravity(positioner.get(), XDG_POSITIONER_GRAVITY_BOTTOM_RIGHT);
  xdg_positioner_set_constraint_adjustment(
      positioner.get(),
      XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_RESIZE_X | XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_RESIZE_Y);
  m_popup.reset(xdg_surface_get_popup(m_popupSurface.get(), nullptr, positioner.get()));
  xdg_popup_add_listener(m_popup.get(), &Listener::table, this);
  layer.adopt(m_popup.get());
  wl_surface_commit(m_surface.get());
}

PopupProbe::~PopupProbe() = default;

std::optional<QRect> PopupProbe::area(const WaylandQueue& queue, std::chrono::milliseconds patience) const {
  queue.waitUntil([this] { return m_area.has_value(); }, patience);
  return m_area;
}

}  // namespace mireval
