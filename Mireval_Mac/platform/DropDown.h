#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

#include <cstdint>

class QRegion;
class QScreen;

namespace mireval {

/// Shows one window as a panel that drops down from the icon: without a frame, above all other windows. Made
/// by WindowSystem. Lives on the UI thread. Hiding the window ends what this does for it.
class DropDown : public QObject {
  Q_OBJECT

 public:
  /// Puts the window's top-left corner at a place on the screen, before `show` or later. `position` and
  /// `workArea` are in device-independent pixels, as in ScreenArea; the position was chosen for that work
  /// area. Does nothing where the desktop chooses the place.
  virtual void moveTo(QScreen& screen, const QRect& workArea, QPoint position) = 0;

  enum class Outside : std::uint8_t {
    /// The window draws nothing there, but could not show what lies behind it.
    hidden,
    /// The window draws its own shadow there.
    shadow,
  };

  /// The pixels of the window that are the panel, in pixels of the screen from its top-left corner. Clicks on
  /// the others are clicks outside. Called after each `moveTo`, and before the window gets smaller.
  virtual void setShape(const QRegion& pixels, Outside outside) = 0;

  /// Shows the window and asks for the keyboard.
  virtual void show() = 0;

  /// Asks for the keyboard again, after another window has got it.
  virtual void activate() = 0;

  /// Whether the visible window has the keyboard to itself and is told of clicks outside, as it is after
  /// `show`. Without that, another window of the application can be used beside it.
  virtual void setExclusive(bool exclusive) = 0;

 Q_SIGNALS:
  /// A button was pressed and released beside the window. Where the desktop does not tell, the loss of the
  /// keyboard is the only sign. This object must not be deleted in a direct connection.
  void clickedOutside();
};

}  // namespace mireval
