#pragma once

#include "platform/ScreenArea.h"

#include <QRasterWindow>
#include <QRect>

#include <vector>

namespace mireval {

/// An invisible window above everything else on all screens. It tells of clicks beside a panel where the
/// desktop does not, and where the pointer is where that is known only above the own windows. Lives on the UI
/// thread.
class ClickCatcher final : public QRasterWindow {
  Q_OBJECT

 public:
  ClickCatcher();

  /// Where the pointer was seen last, in the window system's own pixels. It may be elsewhere by now.
  static QPoint lastSeenPointer();

  /// Covers the screens, except for the area, which is in device-independent pixels of the desktop.
  void leaveOut(const QRect& area);

 Q_SIGNALS:
  /// The pointer is above the window, and was not at this place when it was seen before. `place` is in the
  /// window system's own pixels. The window must not be deleted in a direct connection.
  void pointerSeen(QPoint place);

  /// A button was pressed on the window, and released again. As above.
  void clicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool m_pressed = false;
};

}  // namespace mireval
