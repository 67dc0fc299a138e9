#pragma once

#include "ui/InvisibleWindow.h"

#include <QPoint>
#include <QRect>
#include <QTimer>

namespace mireval {

/// An invisible window above everything else on all screens. It tells of clicks beside a panel where the
/// desktop does not, and where the pointer is where that is known only above the own windows. Lives on the UI
/// thread.
class ClickCatcher final : public InvisibleWindow {
  Q_OBJECT

 public:
  ClickCatcher();

  /// Finds out where the pointer is: the window must be shown soon, and hears of it as soon as the desktop
  /// lets go of the button that is pressed on some window that is not ours.
  void findPointer();
  void stopFinding();

  /// Covers the screens, except for the area, which is in device-independent pixels of the desktop.
  void leaveOut(const QRect& area);

 Q_SIGNALS:
  /// `findPointer` has found it. `place` is in the window system's own pixels. The window must not be deleted
  /// in a direct connection.
  void pointerFound(QPoint place);

  /// A button was pressed on the window, and released again. As above.
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void look();

  bool m_pressed = false;
  QTimer m_looking;
  QPoint m_wrongPlace;
  InvisibleWindow m_nudge;
  int m_looks = 0;
};

}  // namespace mireval
