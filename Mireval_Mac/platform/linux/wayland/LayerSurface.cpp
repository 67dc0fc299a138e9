#include "platform/linux/wayland/LayerSurface.h"

#include "platform/linux/wayland/WaylandQueue.h"

#include <layer-shell-client-protocol.h>
#include <wayland-client.h>

#include <utility>

namespace mireval {
namespace {

std::uint32_t anchors(Qt::Edges edges) {
  std::uint32_t anchors = 0;
  for (const auto& [edge, anchor] : {std::pair(Qt::TopEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP),
                                     {Qt::BottomEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM},
                                     {Qt::LeftEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT},
                                     {Qt::RightEdge, ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT}}) {
    if (edges.testFlag(edge)) {
      anchors |= anchor;
    }
  }
  return anchors;
}

}  // namespace

struct LayerSurface::Listener {
  static void configure(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial, std::uint32_t width,
                        std::uint32_t height) {
    auto& surface = *static_cast<LayerSurface*>(data);
    zwlr_layer_surface_v1_ack_configure(role, serial);
    // Some compositors repeat it whenever a surface changes: an answer to each would never end.
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    if (!std::exchange(surface.m_configured, true) || surface.m_size != size) {
      surface.m_size = size;
      Q_EMIT surface.configured();
    }
  }

  static void closed(void* data, zwlr_layer_surface_v1*) {
    Q_EMIT static_cast<LayerSurface*>(data)->closed();
  }

  static constexpr zwlr_layer_surface_v1_listener table{.configure = &configure, .closed = &closed};
};

LayerSurface::LayerSurface(zwlr_layer_shell_v1* layers, wl_surface* surface, wl_output* output,
                           const Placement& placement, const char* name)
    : m_surface(surface),
      m_role(zwlr_layer_shell_v1_get_layer_surface(layers, surface, output, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
                                                   name)) {
  zwlr_layer_surface_v1_add_listener(m_role.get(), &Listener::table, this);
  place(placement);
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::place(const Placement& placement) {
  constexpr int leavesBarsAlone = -1;
  const QMargins& margins = placement.margins;
  zwlr_layer_surface_v1_set_size(m_role.get(), static_cast<std::uint32_t>(placement.size.width()),
                                 static_cast<std::uint32_t>(placement.size.height()));
  zwlr_layer_surface_v1_set_anchor(m_role.get(), anchors(placement.edges));
  zwlr_layer_surface_v1_set_exclusive_zone(m_role.get(), placement.bars == Bars::cover ? leavesBarsAlone : 0);
  zwlr_layer_surface_v1_set_margin(m_role.get(), margins.top(), margins.right(), margins.bottom(),
                                   margins.left());
  zwlr_layer_surface_v1_set_keyboard_interactivity(
      m_role.get(), placement.keyboard == Keyboard::exclusive
                        ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                        : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
  wl_surface_commit(m_surface);
}

void LayerSurface::adopt(xdg_popup* popup) const {
  zwlr_layer_surface_v1_get_popup(m_role.get(), popup);
}

bool LayerSurface::waitUntilConfigured(const WaylandQueue& queue, std::chrono::milliseconds patience) {
  const bool configured = queue.waitUntil([this] { return m_configured; }, patience);
  queue.handOver(m_role.get());
  return configured;
}

}  // namespace mireval
