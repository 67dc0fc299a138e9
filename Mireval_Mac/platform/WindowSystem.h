#pragma once

#include "platform/DropDown.h"
#include "platform/PointerFinder.h"
#include "platform/ScreenArea.h"

#include <memory>
#include <optional>
#include <vector>

class QWindow;

namespace mireval {

/// What the desktop lets windows do and knows about its screens. All of it may change while the desktop runs.
/// Used on the UI thread.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// False while the process could not open all files that a new window takes. Toolkits end a process that
  /// tries.
  virtual bool hasRoomForWindow() const = 0;

  /// Makes a drop-down of the window, which has not been shown yet and must outlive the result.
  virtual std::unique_ptr<DropDown> makeDropDown(QWindow& window) const = 0;

  /// Begins to look for the pointer; nullptr where that cannot tell more than the icon does.
  virtual std::unique_ptr<PointerFinder> findPointer() const = 0;

  /// True when transparent parts of a window show what lies behind it; without a compositor they are black.
  virtual bool blendsWindows() const = 0;

  /// In the order of QGuiApplication::screens, the primary one first. Empty only while the desktop has none.
  /// `icon` is the icon's place in the window system's own pixels, if that is known. It tells the side of the
  /// bars where the desktop does not.
  virtual std::vector<ScreenArea> screens(const std::optional<QRect>& icon) const = 0;
};

}  // namespace mireval
