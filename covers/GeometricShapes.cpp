#include "GeometricShapes.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mireval {

QPointF polar(QPointF centre, double radius, double degrees) {
  const double radians = degrees * std::numbers::pi / 180;
  return centre + radius * QPointF(std::cos(radians), std::sin(radians));
}

QRectF squareAround(QPointF centre, double halfSide) {
  return {centre.x() - halfSide, centre.y() - halfSide, 2 * halfSide, 2 * halfSide};
}

QPainterPath circle(QPointF centre, double radius) {
  QPainterPath path;
  path.addEllipse(centre, radius, radius);
  return path;
}

QPainterPath ringSector(QPointF centre, double inner, double outer, double from, double sweep) {
  // Qt's own angles run counterclockwise.
  QPainterPath path;
  path.arcMoveTo(squareAround(centre, outer), -from);
  path.arcTo(squareAround(centre, outer), -from, -sweep);
  if (inner > 0) {
    path.arcTo(squareAround(centre, inner), -from - sweep, sweep);
  } else {
    path.lineTo(centre);
  }
  path.closeSubpath();
  return path;
}

QPainterPath polygon(std::initializer_list<QPointF> corners) {
  QPainterPath path;
  path.addPolygon(QPolygonF(corners));
  path.closeSubpath();
  return path;
}

QColor mix(QColor from, QColor to, double share) {
  const auto channel = [share](int first, int last) {
    return static_cast<int>(std::lround(std::lerp(first, last, std::clamp(share, 0.0, 1.0))));
  };
  return {channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue())};
}

}  // namespace mireval
