#pragma once

#include "platform/linux/windows/LinuxDropDown.h"

namespace mireval {

/// For Wayland desktops that put managed X11 windows in the middle of the screen, but give the keyboard to
/// pop-ups: those that are built on wlroots.
class PopupDropDown final : public LinuxDropDown {
 public:
  explicit PopupDropDown(QWindow& window);

 protected:
  bool grab() override;
};

}  // namespace mireval
