#include "platform/linux/wayland/LayerShell.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/PopupProbe.h"
#include "platform/linux/wayland/WaylandQueue.h"

#include <qpa/qplatformnativeinterface.h>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <layer-shell-client-protocol.h>
#include <sys/mman.h>
#include <unistd.h>
#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <xdg-popup-client-protocol.h>

#include <algorithm>
#include <chrono>
#include <string_view>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto patienceWithProbe = 200ms;

/// The memory is all zeros: transparent.
wl_buffer* makeTransparentPixel(wl_shm* shm) {
  constexpr int size = 4;
  const FileDescriptor memory(memfd_create("pixel", MFD_CLOEXEC));
  if (!memory.isOpen() || ftruncate(memory.get(), size) != 0) {
    return nullptr;
  }
  wl_shm_pool* const pool = wl_shm_create_pool(shm, memory.get(), size);
  wl_buffer* const pixel = wl_shm_pool_create_buffer(pool, 0, 1, 1, size, WL_SHM_FORMAT_ARGB8888);
  wl_shm_pool_destroy(pool);
  return pixel;
}

QPlatformNativeInterface& native() {
  return *QGuiApplication::platformNativeInterface();
}

}  // namespace

struct LayerShell::Listener {
  static void global(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                     std::uint32_t version) {
    auto& shell = *static_cast<LayerShell*>(data);
    const auto bind = [&]<typename Object>(WaylandProxy<Object>& object, const wl_interface& kind,
                                           std::uint32_t newest) {
      if (!object && std::string_view(interface) == kind.name) {
        object.reset(
            static_cast<Object*>(wl_registry_bind(registry, name, &kind, std::min(version, newest))));
      }
    };
    bind(shell.m_compositor, wl_compositor_interface, 4);
    bind(shell.m_shm, wl_shm_interface, 1);
    bind(shell.m_viewporter, wp_viewporter_interface, 1);
    bind(shell.m_layers, zwlr_layer_shell_v1_interface, 4);
    if (!shell.m_popups) {
      bind(shell.m_popups, xdg_wm_base_interface, 1);
      if (shell.m_popups) {
        xdg_wm_base_add_listener(shell.m_popups.get(), &popupsTable, data);
      }
    }
    if (!shell.m_seat) {
      bind(shell.m_seat, wl_seat_interface, 1);
      if (shell.m_seat) {
        wl_seat_add_listener(shell.m_seat.get(), &seatTable, data);
      }
    }
  }

  static void globalRemove(void*, wl_registry*, std::uint32_t) {}

  static void seatCapabilities(void* data, wl_seat*, std::uint32_t capabilities) {
    static_cast<LayerShell*>(data)->m_seatCapabilities = capabilities;
  }

  static void seatName(void*, wl_seat*, const char*) {}

  static void ping(void*, xdg_wm_base* popups, std::uint32_t serial) { xdg_wm_base_pong(popups, serial); }

  static constexpr wl_registry_listener registryTable{.global = &global, .global_remove = &globalRemove};
  static constexpr wl_seat_listener seatTable{.capabilities = &seatCapabilities, .name = &seatName};
  static constexpr xdg_wm_base_listener popupsTable{.ping = &ping};
};

bool LayerShell::isAmong(const QByteArrayList& interfaces) {
  return interfaces.contains(zwlr_layer_shell_v1_interface.name) &&
         interfaces.contains(wp_viewporter_interface.name);
}

void LayerShell::prepareWindows() {
  qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
  // Windows keep the position that they are told, for screen readers.
  qputenv("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
  // We draw without OpenGL. Qt would load it all the same, which costs 10 MB.
  qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none");
}

std::unique_ptr<LayerShell> LayerShell::forApplication() {
  if (!QGuiApplication::platformName().startsWith("wayland"_L1)) {
    return nullptr;
  }
  auto* const connection = static_cast<wl_display*>(native().nativeResourceForIntegration("wl_display"));
  if (connection == nullptr) {
    return nullptr;
  }
  std::unique_ptr<LayerShell> shell(new LayerShell(connection));
  return shell->isComplete() ? std::move(shell) : nullptr;
}

LayerShell::LayerShell(wl_display* connection) : m_connection(connection) {
  const WaylandQueue queue(connection);
  const auto display = queue.standInFor(connection);
  m_registry.reset(wl_display_get_registry(display.get()));
  wl_registry_add_listener(m_registry.get(), &Listener::registryTable, this);
  // The second answer is that of the seat.
  constexpr auto patience = 250ms;
  queue.roundTrip(patience) && queue.roundTrip(patience);
  for (void* const object :
       std::initializer_list<void*>{m_registry.get(), m_compositor.get(), m_shm.get(), m_seat.get(),
                                    m_viewporter.get(), m_layers.get(), m_popups.get()}) {
    if (object != nullptr) {
      queue.handOver(object);
    }
  }
  if (m_shm) {
    m_pixel.reset(makeTransparentPixel(m_shm.get()));
  }
}

LayerShell::~LayerShell() = default;

bool LayerShell::isComplete() const {
  return m_compositor && m_viewporter && m_layers && m_pixel;
}

wl_seat* LayerShell::seatWithPointer() const {
  return (m_seatCapabilities & WL_SEAT_CAPABILITY_POINTER) != 0 ? m_seat.get() : nullptr;
}

wl_seat* LayerShell::seatWithTouch() const {
  return (m_seatCapabilities & WL_SEAT_CAPABILITY_TOUCH) != 0 ? m_seat.get() : nullptr;
}

wl_output* LayerShell::outputOf(QScreen& screen) {
  return static_cast<wl_output*>(native().nativeResourceForScreen("output", &screen));
}

wl_surface* LayerShell::surfaceOf(QWindow& window) {
  return static_cast<wl_surface*>(native().nativeResourceForWindow("surface", &window));
}

QSize LayerShell::usableSize(QScreen& screen) const {
  // A surface that is stretched over it is told the size, and need not be shown for that.
  const WaylandQueue queue(m_connection);
  const WaylandProxy<wl_surface> surface(wl_compositor_create_surface(m_compositor.get()));
  LayerSurface probe(queue.standInFor(m_layers.get()).get(), surface.get(), outputOf(screen),
                     {.edges = LayerSurface::allEdges});
  return probe.waitUntilConfigured(queue, patienceWithProbe) ? probe.size() : screen.size();
}

QRect LayerShell::popupArea(QScreen& screen) const {
  const QRect all = screen.geometry();
  if (!m_popups) {
    return all;
  }
  const WaylandQueue queue(m_connection);
  const WaylandProxy<wl_surface> surface(wl_compositor_create_surface(m_compositor.get()));
  LayerSurface parent(queue.standInFor(m_layers.get()).get(), surface.get(), outputOf(screen),
                      {.edges = LayerSurface::allEdges, .bars = LayerSurface::Bars::cover});
  if (!parent.waitUntilConfigured(queue, patienceWithProbe)) {
    return all;
  }
  const PopupProbe popup(m_compositor.get(), queue.standInFor(m_popups.get()).get(), parent, all.size());
  const QRect area = popup.area(queue, patienceWithProbe).value_or(QRect()).translated(all.topLeft()) & all;
  return area.isEmpty() ? all : area;
}

}  // namespace mireval
