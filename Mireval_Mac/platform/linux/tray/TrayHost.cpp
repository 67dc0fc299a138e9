#include "platform/linux/tray/TrayHost.h"

#include <QRect>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

// These pass a right click on to an item without a menu, and the panel opens at once: sway's bars, the panels
// of LXQt and MATE, the trays of Cinnamon and of Plasma 5. Other hosts need a menu: xfce4-panel shows one of
// its own for an item without one, and GNOME Shell hides such an item.
constexpr std::array<std::string_view, 6> hostsForItemsWithoutMenu{
    "waybar", "swaybar", "lxqt-panel", "notification-ar", "xapp-sn-watcher", "kded5"};

// On Wayland, these tell positions on the desktop: Plasma, GNOME Shell and sway's own bar.
constexpr std::array<std::string_view, 3> hostsThatTellThePosition{"kded5", "gnome-shell", "swaybar"};

// waybar tells positions inside the icon, and other bars may do so, too. No icon is larger than this.
constexpr QRect placesInsideAnIcon(0, 0, 65, 65);

bool contains(const auto& names, const QByteArray& name) {
  return std::ranges::find(names, std::string_view(name.constData())) != names.end();
}

}  // namespace

TrayHost::TrayHost(QByteArray process) : m_process(std::move(process)) {}

bool TrayHost::needsMenu() const {
  return !contains(hostsForItemsWithoutMenu, m_process);
}

std::optional<QPoint> TrayHost::placeOf(const Click& click) const {
  // On X11 hosts tell less than the server knows: Cinnamon tells the edge of its panel, MATE always the same
  // place, and toolkits with a scale of their own (GTK's, in xfce4-panel) count in larger pixels.
  if (click.pointer) {
    return click.pointer;
  }
  if (!click.told || m_process == "waybar") {
    return std::nullopt;
  }
  if (!contains(hostsThatTellThePosition, m_process) && placesInsideAnIcon.contains(*click.told)) {
    return std::nullopt;
  }
  return click.told;
}

}  // namespace mireval
