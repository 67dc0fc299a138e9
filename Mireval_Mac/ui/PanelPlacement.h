#pragma once

#include "platform/ScreenArea.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstddef>
#include <optional>
#include <vector>

namespace mireval {

/// Where a panel goes.
struct PanelPlacement {
  /// The index of the screen that holds all of the panel.
  std::size_t screen;
  /// The panel's top-left corner in device-independent pixels.
  QPoint position;

  bool operator==(const PanelPlacement&) const = default;
};

/// Places a panel beside the bar that holds the icon: centred on the icon where that fits, and inside the
/// screen's work area. A panel that is too large for that begins at the work area's top-left corner.
///
/// `icon` is the icon's rectangle, or the one pixel of it that is known, in the window system's own pixels;
/// without it, the panel goes to the corner where icons usually are. `panel` is in device-independent pixels.
/// The first of the screens, of which there must be one, is the primary screen.
PanelPlacement placePanel(const std::optional<QRect>& icon, QSize panel,
                          const std::vector<ScreenArea>& screens);

}  // namespace mireval
