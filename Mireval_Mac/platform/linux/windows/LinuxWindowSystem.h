#pragma once

#include "platform/WindowSystem.h"

#include <QPoint>

#include <optional>

namespace mireval {

/// X11, also the one that a Wayland desktop offers, and Wayland. Needs the application object. Its questions
/// to the X server wait for the answers.
class LinuxWindowSystem final : public WindowSystem {
 public:
  std::unique_ptr<DropDown> makeDropDown(QWindow& window) const override;
  std::unique_ptr<PointerFinder> findPointer() const override;
  bool blendsWindows() const override;
  std::vector<ScreenArea> screens() const override;

  /// Where the pointer is, in the X server's pixels, if the server knows: on Wayland desktops it does only
  /// while the pointer is above the windows that it shows.
  static std::optional<QPoint> pointer();
};

}  // namespace mireval
