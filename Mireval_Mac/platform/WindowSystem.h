#pragma once

#include "platform/ScreenArea.h"

#include <vector>

class QWindow;

namespace mireval {

/// What the desktop lets windows do and knows about its screens. All of it may change while the desktop runs.
/// Used on the UI thread.
class WindowSystem {
 public:
  /// How a window that drops down from the icon gets to its place and learns of clicks outside.
  enum class DropDown {
    /// A window that passes by the window manager goes where it is put, gets the keyboard and may grab the
    /// pointer.
    grabbing,
    /// A managed window goes where it is put inside the work area and gets the keyboard. Clicks are told only
    /// to the window that they hit.
    managed,
    /// A pop-up that passes by the window manager goes where it is put and gets the keyboard. Clicks are told
    /// only to the window that they hit.
    unmanaged,
    /// The desktop chooses the place, and tells nothing but the loss of the keyboard.
    placedByDesktop,
  };

  virtual ~WindowSystem() = default;

  virtual DropDown dropDown() const = 0;

  /// True when transparent parts of a window show what lies behind it; without a compositor they are black.
  virtual bool blendsWindows() const = 0;

  /// Asks the desktop not to list the window, which has not been shown yet, among those that can be switched
  /// to.
  virtual void keepOutOfLists(QWindow& window) const = 0;

  /// In the order of QGuiApplication::screens, the primary one first; never empty.
  virtual std::vector<ScreenArea> screens() const = 0;
};

}  // namespace mireval
