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

}  // namespace mireval
