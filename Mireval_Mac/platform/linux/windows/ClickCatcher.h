#pragma once

#include "platform/linux/windows/InvisibleWindow.h"

namespace mireval {

/// Covers all screens and tells of clicks, where the desktop tells clicks only to the window that they hit.
class ClickCatcher final : public InvisibleWindow {
  Q_OBJECT

 public:
  ClickCatcher();

  /// Covers the screens except for the area, which is in device-independent pixels of the desktop.
  void leaveOut(const QRect& area);

 Q_SIGNALS:
  /// A button was pressed on the window and released again. The window must not be deleted in a direct
  /// connection.
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool m_pressed = false;
};

}  // namespace mireval
