#pragma once

#include <QRasterWindow>
#include <QRect>

namespace mireval {

/// A transparent window above all others, which tells of clicks: the desktop may tell them only to the window
/// that they hit. It never has the keyboard, and the window manager does not know it. Lives on the UI thread.
class InvisibleWindow final : public QRasterWindow {
  Q_OBJECT

 public:
  /// The area is in device-independent pixels of the desktop.
  explicit InvisibleWindow(const QRect& area);

  /// Makes a hole: the window covers its area except for this one, in the same pixels.
  void leaveOut(const QRect& area);

 Q_SIGNALS:
  /// A button was pressed on the window and released again. The window must not be deleted in a direct
  /// connection.
  void clicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool m_pressed = false;
};

}  // namespace mireval
