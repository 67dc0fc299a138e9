#pragma once

#include "platform/linux/wayland/WaylandProxy.h"

#include <QByteArrayList>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <memory>

struct wl_buffer;
struct wl_compositor;
struct wl_display;
struct wl_output;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_surface;
struct wp_viewporter;
struct xdg_wm_base;
struct zwlr_layer_shell_v1;
class QScreen;
class QWindow;

namespace mireval {

/// What a Wayland compositor offers to put surfaces beside its bars and above all windows, on Qt's own
/// connection. Lives on the UI thread, and not longer than the application object.
class LayerShell final {
 public:
  /// Whether a compositor that offers these interfaces has all that is needed.
  static bool isAmong(const QByteArrayList& interfaces);

  /// To be called before the application object is made: from then on Qt leaves windows alone that have
  /// Qt::BypassWindowManagerHint, so that they can become layers.
  static void prepareWindows();

  /// Nothing when the application's windows are not Wayland's, or when the compositor cannot do it. Waits for
  /// the compositor's answer, for half a second at most.
  static std::unique_ptr<LayerShell> forApplication();

  LayerShell(const LayerShell&) = delete;
  LayerShell& operator=(const LayerShell&) = delete;
  ~LayerShell();

  wl_display* connection() const { return m_connection; }
  wl_compositor* compositor() const { return m_compositor.get(); }
  wp_viewporter* viewporter() const { return m_viewporter.get(); }
  zwlr_layer_shell_v1* layers() const { return m_layers.get(); }
  /// A transparent pixel.
  wl_buffer* pixel() const { return m_pixel.get(); }
  /// Nothing while there is no such device.
  wl_seat* seatWithPointer() const;
  wl_seat* seatWithTouch() const;

  /// Of Qt's objects. A window has a surface while it is visible.
  static wl_output* outputOf(QScreen& screen);
  static wl_surface* surfaceOf(QWindow& window);

  /// The size of what bars that are layers leave of the screen; the compositor does not tell on which sides
  /// they are. Waits for its answer, for a fifth of a second at most; the whole size without one.
  QSize usableSize(QScreen& screen) const;

  /// What bars that are no layers leave of the screen, in device-independent pixels on the desktop. Waits for
  /// two answers as `usableSize` does for one; the whole screen without them.
  QRect popupArea(QScreen& screen) const;

 private:
  struct Listener;

  explicit LayerShell(wl_display* connection);
  bool isComplete() const;

  wl_display* m_connection;
  WaylandProxy<wl_registry> m_registry;
  WaylandProxy<wl_compositor> m_compositor;
  WaylandProxy<wl_shm> m_shm;
  WaylandProxy<wl_seat> m_seat;
  WaylandProxy<wp_viewporter> m_viewporter;
  WaylandProxy<zwlr_layer_shell_v1> m_layers;
  WaylandProxy<xdg_wm_base> m_popups;
  WaylandProxy<wl_buffer> m_pixel;
  std::uint32_t m_seatCapabilities = 0;
};

}  // namespace mireval
