#pragma once

#include "platform/linux/windows/LinuxDropDown.h"

namespace mireval {

/// For Wayland desktops that give the keyboard only to managed X11 windows, but leave those where they are
/// put: KWin and GNOME Shell.
class ManagedDropDown final : public LinuxDropDown {
 public:
  explicit ManagedDropDown(QWindow& window);

  /// Also keeps the window out of task bars and switchers.
  void show() override;
};

}  // namespace mireval
