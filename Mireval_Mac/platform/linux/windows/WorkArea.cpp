#include "platform/linux/windows/WorkArea.h"

#include <algorithm>
#include <cstddef>

namespace mireval {
namespace {

// The places of the numbers.
enum : std::size_t {
  left,
  right,
  top,
  bottom,
  leftStart,
  leftEnd,
  rightStart,
  rightEnd,
  topStart,
  topEnd,
  bottomStart,
  bottomEnd,
  numberCount,
};

}  // namespace

QRect workArea(const QRect& screen, QSize desktop, const std::vector<Strut>& struts) {
  QRect area = screen;
  for (const Strut& strut : struts) {
    if (strut.size() != numberCount) {
      continue;
    }
    const auto number = [&strut, limit = std::max(desktop.width(), desktop.height())](std::size_t place) {
      return static_cast<int>(std::min(strut[place], static_cast<std::uint32_t>(limit)));
    };
    const auto along = [&number](std::size_t start, std::size_t end) {
      return std::max(number(end) + 1 - number(start), 0);
    };
    const QRect atLeft = QRect(0, number(leftStart), number(left), along(leftStart, leftEnd)) & screen;
    const QRect atRight = QRect(desktop.width() - number(right), number(rightStart), number(right),
                                along(rightStart, rightEnd)) &
                          screen;
    const QRect atTop = QRect(number(topStart), 0, along(topStart, topEnd), number(top)) & screen;
    const QRect atBottom = QRect(number(bottomStart), desktop.height() - number(bottom),
                                 along(bottomStart, bottomEnd), number(bottom)) &
                           screen;
    // Space across this whole screen is reserved by a bar on the screen beyond.
    if (!atLeft.isEmpty() && atLeft.width() < screen.width()) {
      area.setLeft(std::max(area.left(), atLeft.right() + 1));
    }
    if (!atRight.isEmpty() && atRight.width() < screen.width()) {
      area.setRight(std::min(area.right(), atRight.left() - 1));
    }
    if (!atTop.isEmpty() && atTop.height() < screen.height()) {
      area.setTop(std::max(area.top(), atTop.bottom() + 1));
    }
    if (!atBottom.isEmpty() && atBottom.height() < screen.height()) {
      area.setBottom(std::min(area.bottom(), atBottom.top() - 1));
    }
  }
  return area.isEmpty() ? screen : area;
}

QRect workAreaOfSize(const QRect& screen, QSize size, const std::optional<QRect>& icon) {
  const QSize bars = (screen.size() - size).boundedTo(screen.size()).expandedTo(QSize(0, 0));
  const QPoint place = icon ? icon->center() : screen.bottomRight();
  const int fromLeft = place.x() - screen.left();
  const int fromRight = screen.right() - place.x();
  const int fromTop = place.y() - screen.top();
  const int fromBottom = screen.bottom() - place.y();
  const bool horizontal = bars.height() > 0 && (bars.width() == 0 || std::min(fromTop, fromBottom) <=
                                                                         std::min(fromLeft, fromRight));
  // Bars along other edges are not where the panel goes.
  if (horizontal) {
    return screen.adjusted(0, fromTop <= fromBottom ? bars.height() : 0, 0,
                           fromTop <= fromBottom ? 0 : -bars.height());
  }
  return screen.adjusted(fromLeft <= fromRight ? bars.width() : 0, 0,
                         fromLeft <= fromRight ? 0 : -bars.width(), 0);
}

}  // namespace mireval
