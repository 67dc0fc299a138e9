#include "platform/linux/windows/LinuxWindowSystem.h"

#include "platform/linux/posix/SpareDescriptors.h"
#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/windows/LayerDropDown.h"
#include "platform/linux/windows/LayerPointerFinder.h"
#include "platform/linux/windows/LinuxDropDown.h"
#include "platform/linux/windows/WorkArea.h"
#include "platform/linux/windows/XwaylandPointerFinder.h"
#include "platform/linux/x11/X11Connection.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <QtMath>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

// With those of the connections to the sound server and to screen readers.
constexpr int descriptorsForWindow = 32;

/// Whether the X server shows its windows on a Wayland desktop.
bool isInsideWayland(const X11Connection& x11) {
  // Before version 23.1, only the names of its screens tell that the server is Xwayland.
  const QScreen* const screen = QGuiApplication::primaryScreen();
  return x11.hasExtension("XWAYLAND") || (screen != nullptr && screen->name().startsWith("XWAYLAND"_L1));
}

QByteArray windowManager(const X11Connection& x11) {
  const auto owner = x11.windows(x11.root(), x11.atom("_NET_SUPPORTING_WM_CHECK"));
  return owner.empty() ? QByteArray() : x11.text(owner.front(), x11.atom("_NET_WM_NAME"));
}

std::vector<Strut> struts(const X11Connection& x11) {
  const xcb_atom_t property = x11.atom("_NET_WM_STRUT_PARTIAL");
  std::vector<Strut> struts;
  for (const xcb_window_t window : x11.windows(x11.root(), x11.atom("_NET_CLIENT_LIST"))) {
    if (Strut strut = x11.cardinals(window, property); !strut.empty()) {
      struts.push_back(std::move(strut));
    }
  }
  return struts;
}

}  // namespace

LinuxWindowSystem::LinuxWindowSystem() : m_layers(LayerShell::forApplication()) {}

LinuxWindowSystem::~LinuxWindowSystem() = default;

bool LinuxWindowSystem::hasRoomForWindow() const {
  return canOpenDescriptors(descriptorsForWindow);
}

std::unique_ptr<DropDown> LinuxWindowSystem::makeDropDown(QWindow& window) const {
  if (m_layers) {
    return std::make_unique<LayerDropDown>(window, *m_layers);
  }
  const auto x11 = X11Connection::forApplication();
  if (!x11) {
    return std::make_unique<LinuxDropDown>(window, LinuxDropDown::placedByDesktop);
  }
  if (!isInsideWayland(*x11)) {
    return std::make_unique<LinuxDropDown>(window, LinuxDropDown::grabbing);
  }
  const QByteArray manager = windowManager(*x11);
  const bool managed = manager == "KWin" || manager == "GNOME Shell";
  return std::make_unique<LinuxDropDown>(window, managed ? LinuxDropDown::managed : LinuxDropDown::popup);
}

std::unique_ptr<PointerFinder> LinuxWindowSystem::findPointer() const {
  if (m_layers) {
    return std::make_unique<LayerPointerFinder>(*m_layers);
  }
  const auto x11 = X11Connection::forApplication();
  return x11 && isInsideWayland(*x11) ? std::make_unique<XwaylandPointerFinder>() : nullptr;
}

bool LinuxWindowSystem::blendsWindows() const {
  const auto x11 = X11Connection::forApplication();
  // A compositor owns this selection as long as it runs; Wayland desktops are compositors.
  return !x11 || x11->selectionHasOwner("_NET_WM_CM_S0") || isInsideWayland(*x11);
}

std::vector<ScreenArea> LinuxWindowSystem::screens(const std::optional<QRect>& icon) const {
  // With several screens, Qt does not subtract the bars.
  const auto x11 = X11Connection::forApplication();
  const std::vector<Strut> bars = x11 ? struts(*x11) : std::vector<Strut>();
  std::vector<ScreenArea> areas;
  for (QScreen* const screen : QGuiApplication::screens()) {
    // Wayland counts in device-independent pixels.
    ScreenArea area{.geometry = screen->geometry(),
                    .workArea = screen->availableGeometry(),
                    .scale = x11 ? screen->devicePixelRatio() : 1};
    if (m_layers) {
      const QSize size = m_layers->usableSize(*screen);
      // The bars of Plasma 5 are no layers.
      area.workArea = size == area.geometry.size() ? m_layers->popupArea(*screen)
                                                   : workAreaOfSize(area.geometry, size, icon);
    } else if (x11) {
      const QRect native = workArea(area.nativeGeometry(), x11->rootSize(), bars);
      const QRectF left = area.fromNative(QRectF(native));
      area.workArea &= QRect(QPoint(qCeil(left.left()), qCeil(left.top())),
                             QPoint(qFloor(left.right()) - 1, qFloor(left.bottom()) - 1));
    }
    areas.push_back(area);
  }
  return areas;
}

std::optional<QPoint> LinuxWindowSystem::pointer() {
  const auto x11 = X11Connection::forApplication();
  return x11 && !isInsideWayland(*x11) ? x11->pointer() : std::nullopt;
}

}  // namespace mireval
