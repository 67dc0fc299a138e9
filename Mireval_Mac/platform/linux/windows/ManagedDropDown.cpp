#include "platform/linux/windows/ManagedDropDown.h"

#include "platform/linux/windows/X11Connection.h"

namespace mireval {

ManagedDropDown::ManagedDropDown(QWindow& window)
    : LinuxDropDown(window, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
  catchClicks();
}

void ManagedDropDown::show() {
  if (const auto x11 = X11Connection::forApplication()) {
    // Qt keeps the atoms of this property that it does not know.
    x11->addAtoms(static_cast<xcb_window_t>(window().winId()), "_NET_WM_STATE",
                  {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
  }
  LinuxDropDown::show();
}

}  // namespace mireval
