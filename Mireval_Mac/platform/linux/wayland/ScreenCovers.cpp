#include "platform/linux/wayland/ScreenCovers.h"

#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/wayland/LayerSurface.h"

#include <QGuiApplication>
#include <QScreen>

#include <viewporter-client-protocol.h>
#include <wayland-client.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace mireval {

/// One pixel that is stretched over one screen.
class ScreenCovers::Cover {
 public:
  Cover(LayerShell& shell, QScreen& screen)
      : m_shell(shell),
        m_screen(screen.geometry()),
        m_surface(wl_compositor_create_surface(shell.compositor())),
        m_viewport(wp_viewporter_get_viewport(shell.viewporter(), m_surface.get())),
        m_layer(shell.layers(), m_surface.get(), LayerShell::outputOf(screen), placement, name) {
    QObject::connect(&m_layer, &LayerSurface::configured, &m_layer, [this] {
      wp_viewport_set_destination(m_viewport.get(), m_layer.size().width(), m_layer.size().height());
      wl_surface_attach(m_surface.get(), m_shell.pixel(), 0, 0);
      constexpr std::int32_t all = std::numeric_limits<std::int32_t>::max();
      wl_surface_damage(m_surface.get(), 0, 0, all, all);
      wl_surface_commit(m_surface.get());
    });
  }

  void stir() { m_layer.place(placement); }

  void leaveOut(const QRect& area) {
    const WaylandProxy<wl_region> region(wl_compositor_create_region(m_shell.compositor()));
    const QRect hole = area.translated(-m_screen.topLeft());
    wl_region_add(region.get(), 0, 0, m_screen.width(), m_screen.height());
    wl_region_subtract(region.get(), hole.x(), hole.y(), hole.width(), hole.height());
    wl_surface_set_input_region(m_surface.get(), region.get());
    wl_surface_commit(m_surface.get());
  }

  QPoint origin() const { return m_screen.topLeft(); }
  const wl_surface* surface() const { return m_surface.get(); }

 private:
  static constexpr LayerSurface::Placement placement{.edges = LayerSurface::allEdges,
                                                     .bars = LayerSurface::Bars::cover};
  // KWin 5 gives the keyboard to each layer that is clicked on, except docks. Qt 6.4 must not get it for a
  // surface that is not Qt's: it would remember the surface after its end.
  static constexpr const char* name = "dock";

  const LayerShell& m_shell;
  const QRect m_screen;
  WaylandProxy<wl_surface> m_surface;
  WaylandProxy<wp_viewport> m_viewport;
  LayerSurface m_layer;
};

struct ScreenCovers::Listener {
  static ScreenCovers& covers(void* data) { return *static_cast<ScreenCovers*>(data); }

  static void enter(void* data, wl_pointer*, std::uint32_t, wl_surface* surface, wl_fixed_t x, wl_fixed_t y) {
    covers(data).enter(surface, {wl_fixed_to_double(x), wl_fixed_to_double(y)});
  }

  static void leave(void* data, wl_pointer*, std::uint32_t, wl_surface*) { covers(data).m_pointed = false; }

  static void motion(void*, wl_pointer*, std::uint32_t, wl_fixed_t, wl_fixed_t) {}

  static void button(void* data, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t,
                     std::uint32_t state) {
    if (state == WL_POINTER_BUTTON_STATE_PRESSED) {
      covers(data).press(covers(data).m_pointed);
    } else {
      covers(data).release();
    }
  }

  static void axis(void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {}

  static void down(void* data, wl_touch*, std::uint32_t, std::uint32_t, wl_surface* surface, std::int32_t,
                   wl_fixed_t, wl_fixed_t) {
    covers(data).press(std::ranges::find(covers(data).m_covers, surface, &Cover::surface) !=
                       covers(data).m_covers.end());
  }

  static void up(void* data, wl_touch*, std::uint32_t, std::uint32_t, std::int32_t) {
    covers(data).release();
  }

  static void touchMotion(void*, wl_touch*, std::uint32_t, std::int32_t, wl_fixed_t, wl_fixed_t) {}

  static void frame(void*, wl_touch*) {}

  static void cancel(void* data, wl_touch*) { covers(data).m_pressed = false; }

  // Later versions of these have more events. The seat is of the first version.
  static wl_pointer_listener makePointerTable() {
    wl_pointer_listener table{};
    table.enter = &enter;
    table.leave = &leave;
    table.motion = &motion;
    table.button = &button;
    table.axis = &axis;
    return table;
  }

  static wl_touch_listener makeTouchTable() {
    wl_touch_listener table{};
    table.down = &down;
    table.up = &up;
    table.motion = &touchMotion;
    table.frame = &frame;
    table.cancel = &cancel;
    return table;
  }

  static inline const wl_pointer_listener pointerTable = makePointerTable();
  static inline const wl_touch_listener touchTable = makeTouchTable();
};

std::shared_ptr<ScreenCovers> ScreenCovers::of(LayerShell& shell) {
  static std::weak_ptr<ScreenCovers> present;
  auto covers = present.lock();
  if (!covers) {
    covers.reset(new ScreenCovers(shell));
    present = covers;
  }
  return covers;
}

ScreenCovers::ScreenCovers(LayerShell& shell) : m_connection(shell.connection()) {
  if (wl_seat* const seat = shell.seatWithPointer()) {
    m_pointer.reset(wl_seat_get_pointer(seat));
    wl_pointer_add_listener(m_pointer.get(), &Listener::pointerTable, this);
  }
  if (wl_seat* const seat = shell.seatWithTouch()) {
    m_touch.reset(wl_seat_get_touch(seat));
    wl_touch_add_listener(m_touch.get(), &Listener::touchTable, this);
  }
  for (QScreen* const screen : QGuiApplication::screens()) {
    if (LayerShell::outputOf(*screen) != nullptr) {
      m_covers.push_back(std::make_unique<Cover>(shell, *screen));
    }
  }
  wl_display_flush(m_connection);
}

ScreenCovers::~ScreenCovers() {
  m_covers.clear();
  wl_display_flush(m_connection);
}

void ScreenCovers::stir() {
  for (const auto& cover : m_covers) {
    cover->stir();
  }
  wl_display_flush(m_connection);
}

void ScreenCovers::leaveOut(const QRect& area) {
  for (const auto& cover : m_covers) {
    cover->leaveOut(area);
  }
}

void ScreenCovers::enter(wl_surface* surface, QPointF place) {
  const auto cover = std::ranges::find(m_covers, surface, &Cover::surface);
  m_pointed = cover != m_covers.end();
  if (m_pointed) {
    Q_EMIT entered((*cover)->origin() + place.toPoint());
  }
}

void ScreenCovers::press(bool onCover) {
  m_pressed = onCover;
}

void ScreenCovers::release() {
  // Not on the press: what lies below would get the release.
  if (std::exchange(m_pressed, false)) {
    Q_EMIT clicked();
  }
}

}  // namespace mireval
