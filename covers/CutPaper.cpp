#include "CutPaper.h"

#include "SmoothCurve.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mireval {
namespace {

/// Maps the line from (0, 0) to (1, 0) to that from `base` to `tip`, and 1 across it to `width`.
QTransform along(QPointF base, QPointF tip, double width) {
  const QPointF axis = tip - base;
  const double length = std::hypot(axis.x(), axis.y());
  const QPointF across = QPointF(-axis.y(), axis.x()) * (width / length);
  return {axis.x(), axis.y(), across.x(), across.y(), base.x(), base.y()};
}

}  // namespace

CutPaper::CutPaper(QPainter& painter, QColor ground, std::uint32_t seed)
    : m_painter(painter), m_random(seed) {
  m_painter.fillRect(QRectF(0, 0, 1000, 1000), ground);
}

void CutPaper::lay(const QPainterPath& shape, QColor colour) {
  m_painter.setCompositionMode(QPainter::CompositionMode_Multiply);
  m_painter.fillPath(shape, colour);
  m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void CutPaper::glue(const QPainterPath& shape, QColor colour) {
  m_painter.fillPath(shape, colour);
}

QPainterPath CutPaper::stone(QPointF centre, double halfWidth, double halfHeight, double angle) {
  constexpr int corners = 9;
  QPolygonF points;
  for (int i = 0; i < corners; ++i) {
    const double turn = 2 * std::numbers::pi * i / corners;
    points << QPointF(halfWidth * std::cos(turn), halfHeight * std::sin(turn)) * (1 + tremble(0.045));
  }
  return QTransform::fromTranslate(centre.x(), centre.y()).rotate(angle).map(SmoothCurve::closed(points));
}

QPainterPath CutPaper::leaf(QPointF base, QPointF tip, double width) {
  const QPolygonF right{{0.2 + tremble(0.05), 0.62 + tremble(0.06)}, {0.65, 0.55 + tremble(0.06)}};
  const QPolygonF left{{0.65, -0.55 + tremble(0.06)}, {0.2 + tremble(0.05), -0.62 + tremble(0.06)}};
  QPainterPath path(QPointF(0, 0));
  path.cubicTo(right[0], right[1], {1, 0});
  path.cubicTo(left[0], left[1], {0, 0});
  return along(base, tip, width).map(path);
}

QPainterPath CutPaper::petal(QPointF base, QPointF tip, double width) {
  const QPolygonF points{{0, 0},
                         {0.3, 0.2 + tremble(0.02)},
                         {0.68, 0.48 + tremble(0.03)},
                         {0.93, 0.34 + tremble(0.03)},
                         {1, tremble(0.04)},
                         {0.93, -0.34 + tremble(0.03)},
                         {0.68, -0.48 + tremble(0.03)},
                         {0.3, -0.2 + tremble(0.02)}};
  return along(base, tip, width).map(SmoothCurve::closed(points));
}

QPainterPath CutPaper::ribbon(const QPolygonF& line, double width) {
  const QPainterPath middle = SmoothCurve::open(line);
  const int steps = std::max(4, int(middle.length() / (1.2 * width)));
  QPolygonF left;
  QPolygonF right;
  for (int i = 0; i <= steps; ++i) {
    const double part = double(i) / steps;
    const double angle = middle.angleAtPercent(part) * std::numbers::pi / 180;
    const QPointF across(std::sin(angle), std::cos(angle));
    left << middle.pointAtPercent(part) + across * width * (0.5 + tremble(0.04));
    right.prepend(middle.pointAtPercent(part) - across * width * (0.5 + tremble(0.04)));
  }
  QPainterPath path = SmoothCurve::open(left);
  path.connectPath(SmoothCurve::open(right));
  path.closeSubpath();
  return path;
}

}  // namespace mireval
