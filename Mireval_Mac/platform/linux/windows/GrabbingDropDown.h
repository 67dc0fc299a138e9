#pragma once

#include "platform/linux/windows/LinuxDropDown.h"

namespace mireval {

/// For X11 desktops: the window manager does not know the window. The pointer grab tells of clicks anywhere.
class GrabbingDropDown final : public LinuxDropDown {
 public:
  explicit GrabbingDropDown(QWindow& window)
      : LinuxDropDown(window, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                                  Qt::WindowStaysOnTopHint) {}

 protected:
  // Leaves the keyboard alone: grabbing it would swallow the media keys.
  bool grab() override { return window().setMouseGrabEnabled(true); }
};

}  // namespace mireval
