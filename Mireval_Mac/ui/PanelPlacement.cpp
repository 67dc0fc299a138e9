#include "ui/PanelPlacement.h"

#include <algorithm>

namespace mireval {
namespace {

// All in device-independent pixels.
constexpr int gap = 4;
// From a pixel of an icon to the end of its bar, where the desktop does not tell how thick the bar is.
constexpr int reach = 14;
// Room for a bar at the top that the desktop does not tell of.
constexpr int usualBar = 40;
// No further is an icon, or a menu that opens from it, from the edge of the screen or from its bar.
constexpr int nearby = 64;

enum class Edge { top, bottom, left, right };

int distance(const QRect& area, QPoint point) {
  return std::max({area.left() - point.x(), 0, point.x() - area.right()}) +
         std::max({area.top() - point.y(), 0, point.y() - area.bottom()});
}

std::size_t screenAt(QPoint point, const std::vector<ScreenArea>& screens) {
  // A screen may have been taken away since the place was told.
  const auto nearest = std::ranges::min_element(
      screens, {}, [point](const ScreenArea& screen) { return distance(screen.nativeGeometry(), point); });
  return static_cast<std::size_t>(nearest - screens.begin());
}

/// The edge of the screen along which the icon's bar lies.
Edge edgeOfBar(QPoint icon, const ScreenArea& screen) {
  const QRect& work = screen.workArea;
  if (icon.y() < work.top()) {
    return Edge::top;
  }
  if (icon.y() > work.bottom()) {
    return Edge::bottom;
  }
  if (icon.x() < work.left()) {
    return Edge::left;
  }
  if (icon.x() > work.right()) {
    return Edge::right;
  }
  const QRect& all = screen.geometry;
  const int fromTop = icon.y() - all.top();
  const int fromBottom = all.bottom() - icon.y();
  const int fromLeft = icon.x() - all.left();
  const int fromRight = all.right() - icon.x();
  // In a corner it could be either; bars are horizontal more often.
  if (const int vertical = std::min(fromTop, fromBottom);
      vertical <= nearby || vertical <= std::min(fromLeft, fromRight)) {
    return fromTop <= fromBottom ? Edge::top : Edge::bottom;
  }
  return fromLeft <= fromRight ? Edge::left : Edge::right;
}

/// Where the panel may begin, going away from a bar at the lower end of the axis. `iconEnd` is the first
/// pixel beyond the icon.
int beyondBar(int iconEnd, int screenStart, int workStart) {
  const bool barIsKnown = workStart > screenStart && iconEnd - workStart <= nearby;
  return (barIsKnown ? workStart : iconEnd) + gap;
}

int centred(int centre, int length) {
  return centre - length / 2;
}

/// Keeps off the ends by the gap if there is room for that.
int clamped(int start, int length, int first, int end) {
  const int room = end - first - length;
  const int margin = std::clamp(room / 2, 0, gap);
  return std::max(std::min(start, end - margin - length), first + margin);
}

QPoint clamped(QPoint position, QSize panel, const QRect& area) {
  return {clamped(position.x(), panel.width(), area.left(), area.left() + area.width()),
          clamped(position.y(), panel.height(), area.top(), area.top() + area.height())};
}

QPoint usualPlace(QSize panel, const ScreenArea& screen) {
  const QRect& all = screen.geometry;
  const QRect& work = screen.workArea;
  const bool barAtTop = work.top() > all.top();
  const bool barAtBottom = work.bottom() < all.bottom();
  const int x = work.right() + 1 - panel.width();
  if (barAtBottom && !barAtTop) {
    return {x, work.bottom() + 1 - panel.height()};
  }
  return {x, barAtTop ? work.top() : work.top() + usualBar};
}

QPoint besideIcon(const QRect& icon, QSize panel, const ScreenArea& screen) {
  const QRect& all = screen.geometry;
  const QRect& work = screen.workArea;
  const QPoint centre = screen.fromNative(QPointF(icon.center())).toPoint();
  const QRect covered = icon.size() == QSize(1, 1)
                            ? QRect(centre, icon.size()).adjusted(-reach, -reach, reach, reach)
                            : screen.fromNative(QRectF(icon)).toAlignedRect();
  const int x = centred(centre.x(), panel.width());
  const int y = centred(centre.y(), panel.height());
  switch (edgeOfBar(centre, screen)) {
    case Edge::top:
      return {x, beyondBar(covered.bottom() + 1, all.top(), work.top())};
    case Edge::bottom:
      // The same, looked at in a mirror.
      return {x, -beyondBar(-covered.top(), -all.bottom() - 1, -work.bottom() - 1) - panel.height()};
    case Edge::left:
      return {beyondBar(covered.right() + 1, all.left(), work.left()), y};
    case Edge::right:
      break;
  }
  return {-beyondBar(-covered.left(), -all.right() - 1, -work.right() - 1) - panel.width(), y};
}

}  // namespace

PanelPlacement placePanel(const std::optional<QRect>& icon, QSize panel,
                          const std::vector<ScreenArea>& screens) {
  const std::size_t index = icon ? screenAt(icon->center(), screens) : 0;
  const ScreenArea& screen = screens[index];
  const QPoint wanted = icon ? besideIcon(*icon, panel, screen) : usualPlace(panel, screen);
  return {.screen = index, .position = clamped(wanted, panel, screen.workArea)};
}

}  // namespace mireval
