#pragma once

#include "platform/linux/wayland/WaylandProxy.h"

#include <QMargins>
#include <QObject>
#include <QSize>

#include <chrono>
#include <cstdint>

struct wl_output;
struct xdg_popup;

namespace mireval {

class WaylandQueue;

/// The role of a surface that is above all windows, at the edges of a screen. Ends before the surface does.
/// Lives on the UI thread.
class LayerSurface final : public QObject {
  Q_OBJECT

 public:
  enum class Bars : std::uint8_t {
    /// The edges are those of what bars leave of the screen.
    avoid,
    /// The edges are the screen's.
    cover,
  };

  enum class Keyboard : std::uint8_t {
    none,
    /// At once, and until the role changes or ends.
    exclusive,
  };

  static constexpr Qt::Edges allEdges = Qt::TopEdge | Qt::BottomEdge | Qt::LeftEdge | Qt::RightEdge;

  struct Placement {
    Qt::Edges edges;
    /// From the edges, in device-independent pixels, as the size is. No size: from edge to edge.
    QMargins margins = {};
    QSize size = {0, 0};
    Bars bars = Bars::avoid;
    Keyboard keyboard = Keyboard::none;
  };

  /// Asks for the place. The surface must have no role and no content, until `configured`. `layers` may be a
  /// queue's stand-in. Some compositors treat a layer as its name says.
  LayerSurface(zwlr_layer_shell_v1* layers, wl_surface* surface, wl_output* output,
               const Placement& placement, const char* name = "mireval");
  ~LayerSurface() override;

  /// Shows the surface elsewhere on the same screen.
  void place(const Placement& placement);

  /// Waits for `configured` on the queue that the role was made with, and moves the role to the application's
  /// queue. False if the answer does not come in time.
  bool waitUntilConfigured(const WaylandQueue& queue, std::chrono::milliseconds patience);

  /// Makes the popup one of this layer. The popup must have no parent yet.
  void adopt(xdg_popup* popup) const;

  /// As the compositor has told it.
  QSize size() const { return m_size; }

 Q_SIGNALS:
  /// The compositor has told the size, for the first time or another one. The surface may have content from
  /// now on.
  void configured();

  /// The compositor has taken the place away, because the screen has gone.
  void closed();

 private:
  struct Listener;

  bool m_configured = false;
  QSize m_size;
  wl_surface* m_surface;
  WaylandProxy<zwlr_layer_surface_v1> m_role;
};

}  // namespace mireval
