#pragma once

#include <QRasterWindow>
#include <QRect>

namespace mireval {

/// A transparent window above all others. It never has the keyboard, and the window manager does not know it.
/// Lives on the UI thread.
class InvisibleWindow : public QRasterWindow {
 public:
  /// The area is in device-independent pixels of the desktop.
  explicit InvisibleWindow(const QRect& area);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mireval
