#include "platform/linux/windows/PopupDropDown.h"

namespace mireval {

PopupDropDown::PopupDropDown(QWindow& window) : LinuxDropDown(window, Qt::Popup | Qt::FramelessWindowHint) {
  catchClicks();
  // Qt hides pop-ups from screen readers. An active window keeps the keyboard when it becomes another kind.
  connect(&window, &QWindow::activeChanged, this, [&window] {
    if (window.isActive()) {
      window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    }
  });
}

bool PopupDropDown::grab() {
  // The desktop gives the X server the keyboard, but does not tell it for which window. This does not take
  // the desktop's own keys, such as the media keys.
  return window().setKeyboardGrabEnabled(true);
}

}  // namespace mireval
