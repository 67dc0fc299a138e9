#include "SmoothCurve.h"

namespace mireval {
namespace {

/// The piece of a Catmull-Rom spline between its two middle points.
void addSpan(QPainterPath& path, QPointF before, QPointF from, QPointF to, QPointF after) {
  path.cubicTo(from + (to - before) / 6, to - (after - from) / 6, to);
}

}  // namespace

QPainterPath SmoothCurve::open(const QPolygonF& points) {
  const qsizetype last = points.size() - 1;
  QPainterPath path(points.first());
  for (qsizetype i = 0; i < last; ++i) {
    addSpan(path, points[qMax<qsizetype>(i - 1, 0)], points[i], points[i + 1], points[qMin(i + 2, last)]);
  }
  return path;
}

QPainterPath SmoothCurve::closed(const QPolygonF& points) {
  const qsizetype count = points.size();
  QPainterPath path(points.first());
  for (qsizetype i = 0; i < count; ++i) {
    addSpan(path, points[(i + count - 1) % count], points[i], points[(i + 1) % count],
            points[(i + 2) % count]);
  }
  path.closeSubpath();
  return path;
}

}  // namespace mireval
