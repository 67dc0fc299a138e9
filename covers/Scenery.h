#pragma once

#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>

class QPainter;

namespace mireval {

/// Air, land and water on the square from (0, 0) to (1000, 1000), painted from the back to the front.
class Scenery {
 public:
  explicit Scenery(QPainter& painter) : m_painter(painter) {}

  /// Fills the square; stop 0 is its top, 1 its bottom.
  void air(const QGradientStops& stops);
  /// Fills the area below a smooth line through points from the left edge to the right one. From the line's
  /// highest point to `depth` below it the colour changes to that of the mist.
  void land(const QPolygonF& skyline, QColor colour, QColor mist, double depth);
  /// Fills the area above a line in the same way, for clouds.
  void ceiling(const QPolygonF& underside, QColor colour, QColor mist, double depth);
  /// Fills the whole width from `top` to `bottom`.
  void water(double top, double bottom, QColor far, QColor near);
  /// Fills a shape, from its highest point to its lowest one.
  void shape(const QPainterPath& outline, QColor top, QColor bottom);
  void disc(QPointF centre, double radius, QColor top, QColor bottom);
  /// Light that fades to nothing at `radius`.
  void glow(QPointF centre, double radius, QColor colour);
  /// Light or shade on water, in the shape of a flat lens.
  void gleam(QPointF centre, double halfWidth, double halfHeight, QColor colour);

 private:
  QPainter& m_painter;
};

}  // namespace mireval
