#pragma once

#include <QPainterPath>
#include <QPolygonF>

namespace mireval {

/// Rounded lines through given points.
class SmoothCurve {
 public:
  /// From the first point to the last.
  static QPainterPath open(const QPolygonF& points);
  /// Through all points and back to the first.
  static QPainterPath closed(const QPolygonF& points);
};

}  // namespace mireval
