#include "ui/PanelPlacement.h"

#include <algorithm>

namespace mireval {
namespace {

// Clear of the icon, whose click may have hit its far side.
constexpr int distanceFromClick = 14;

int clampedStart(int start, int length, int first, int end) {
  return std::max(std::min(start, end - length), first);
}

}  // namespace

QPoint panelPosition(QPoint click, QSize panel, QRect screen, QRect available) {
  const bool barAtTop = click.y() - screen.top() <= screen.bottom() - click.y();
  const int x = click.x() - panel.width() / 2;
  const int y = barAtTop ? click.y() + distanceFromClick : click.y() - distanceFromClick - panel.height();
  return {clampedStart(x, panel.width(), available.left(), available.left() + available.width()),
          clampedStart(y, panel.height(), available.top(), available.top() + available.height())};
}

}  // namespace mireval
