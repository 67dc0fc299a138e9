#pragma once

#include "platform/linux/windows/LinuxDropDown.h"

namespace mireval {

/// For plain Wayland: the desktop chooses the place and tells nothing but the loss of the keyboard.
class DesktopPlacedDropDown final : public LinuxDropDown {
 public:
  explicit DesktopPlacedDropDown(QWindow& window)
      : LinuxDropDown(window, Qt::Window | Qt::FramelessWindowHint) {}
};

}  // namespace mireval
