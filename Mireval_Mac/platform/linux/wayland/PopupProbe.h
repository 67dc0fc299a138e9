#pragma once

#include "platform/linux/wayland/WaylandProxy.h"

#include <QRect>
#include <QSize>

#include <chrono>
#include <optional>

namespace mireval {

class LayerSurface;
class WaylandQueue;

/// A popup that is never shown. The compositor tells where it would be, which is beside all bars, also those
/// that are no layers. Lives on the UI thread.
class PopupProbe final {
 public:
  /// Asks for a popup of this size at the upper left corner of the layer, which must outlive the probe.
  /// `popups` may be a queue's stand-in.
  PopupProbe(wl_compositor* compositor, xdg_wm_base* popups, const LayerSurface& layer, QSize size);
  PopupProbe(const PopupProbe&) = delete;
  PopupProbe& operator=(const PopupProbe&) = delete;
  ~PopupProbe();

  /// Waits on the queue that the probe was made with. As much of the popup as there is room for, counted from
  /// the layer's corner; nothing if the answer does not come in time.
  std::optional<QRect> area(const WaylandQueue& queue, std::chrono::milliseconds patience) const;

 private:
  struct Listener;

  std::optional<QRect> m_area;
  WaylandProxy<wl_surface> m_surface;
  WaylandProxy<xdg_surface> m_popupSurface;
  WaylandProxy<xdg_popup> m_popup;
};

}  // namespace mireval
