#pragma once

#include <QRasterWindow>
#include <QRect>

namespace mireval {

/// A window that nobody sees, above everything else, without the keyboard and unknown to the window manager.
/// Lives on the UI thread.
class InvisibleWindow : public QRasterWindow {
 public:
  /// The area is in device-independent pixels of the desktop.
  explicit InvisibleWindow(const QRect& area);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mireval
