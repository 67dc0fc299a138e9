#pragma once

#include "platform/WindowSystem.h"

#include <QPoint>

#include <optional>

namespace mireval {

/// X11, including the X server of a Wayland desktop, and Wayland. Needs the application object. Requests to
/// the X server wait for the answers.
class LinuxWindowSystem final : public WindowSystem {
 public:
  std::unique_ptr<DropDown> makeDropDown(QWindow& window) const override;
  std::unique_ptr<PointerFinder> findPointer() const override;
  bool blendsWindows() const override;
  std::vector<ScreenArea> screens() const override;

  /// The pointer's position in the X server's pixels. Nothing on Wayland desktops, where that server knows it
  /// only while the pointer is above an X11 window.
  static std::optional<QPoint> pointer();
};

}  // namespace mireval
