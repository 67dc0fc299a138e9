#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace mireval {

/// One of the desktop's screens. The rectangles are in device-independent pixels, except that they begin at
/// the screen's origin in the window system's own pixels, as with QScreen.
struct ScreenArea {
  QRect geometry;
  /// Without the bars that keep other windows away, as far as the desktop tells.
  QRect workArea = {};
  /// The window system's pixels in a device-independent one.
  qreal scale = 1;

  QRect nativeGeometry() const { return {geometry.topLeft(), (QSizeF(geometry.size()) * scale).toSize()}; }

  /// From the window system's pixels, and back.
  QPointF fromNative(QPointF point) const {
    return (point - geometry.topLeft()) / scale + geometry.topLeft();
  }
  QRectF fromNative(QRectF area) const { return {fromNative(area.topLeft()), area.size() / scale}; }
  QPoint toNative(QPointF point) const {
    return ((point - geometry.topLeft()) * scale + geometry.topLeft()).toPoint();
  }
};

}  // namespace mireval
