// What other windows say about the space that they reserve.
#include "FuzzInput.h"
#include "platform/linux/windows/WorkArea.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

namespace {

/// X11 and Wayland count screens in sixteen bits.
QSize takeSize(mireval::FuzzInput& input) {
  const auto width = input.number<std::uint16_t>();
  return {width, input.number<std::uint16_t>()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzInput input(data, size);
  const QSize desktop = takeSize(input);
  const QSize corner = takeSize(input);
  const QSize screenSize = takeSize(input).expandedTo(QSize(1, 1));
  const QRect screen(QPoint(corner.width(), corner.height()), screenSize);
  const QSize usable = takeSize(input);
  const QSize told = takeSize(input);
  const std::optional<QRect> icon =
      input.choice(2) == 1 ? std::optional(QRect(told.width(), told.height(), 22, 22)) : std::nullopt;
  std::vector<mireval::Strut> struts;
  while (!input.isEmpty() && struts.size() < 8) {
    mireval::Strut& strut = struts.emplace_back();
    for (std::size_t left = input.choice(16); left > 0; --left) {
      strut.push_back(input.number<std::uint32_t>());
    }
  }
  for (const QRect& area :
       {mireval::workArea(screen, desktop, struts), mireval::workAreaOfSize(screen, usable, icon)}) {
    if (!screen.contains(area)) {
      std::abort();
    }
  }
  return 0;
}
