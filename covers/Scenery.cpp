#include "Scenery.h"

#include "SmoothCurve.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

namespace mireval {
namespace {

constexpr QRectF square(0, 0, 1000, 1000);

QLinearGradient downwards(double top, double bottom, QColor from, QColor to) {
  QLinearGradient gradient(0, top, 0, bottom);
  gradient.setColorAt(0, from);
  gradient.setColorAt(1, to);
  return gradient;
}

QColor transparent(QColor colour) {
  colour.setAlpha(0);
  return colour;
}

}  // namespace

void Scenery::air(const QGradientStops& stops) {
  QLinearGradient gradient(square.topLeft(), square.bottomLeft());
  gradient.setStops(stops);
  m_painter.fillRect(square, gradient);
}

void Scenery::land(const QPolygonF& skyline, QColor colour, QColor mist, double depth) {
  QPainterPath ground = SmoothCurve::open(skyline);
  const double top = ground.boundingRect().top();
  ground.lineTo(square.bottomRight());
  ground.lineTo(square.bottomLeft());
  m_painter.fillPath(ground, downwards(top, top + depth, colour, mist));
}

void Scenery::ceiling(const QPolygonF& underside, QColor colour, QColor mist, double depth) {
  QPainterPath cloud = SmoothCurve::open(underside);
  const double bottom = cloud.boundingRect().bottom();
  cloud.lineTo(square.topRight());
  cloud.lineTo(square.topLeft());
  m_painter.fillPath(cloud, downwards(bottom - depth, bottom, colour, mist));
}

void Scenery::water(double top, double bottom, QColor far, QColor near) {
  m_painter.fillRect(QRectF(0, top, square.width(), bottom - top), downwards(top, bottom, far, near));
}

void Scenery::shape(const QPainterPath& outline, QColor top, QColor bottom) {
  const QRectF bounds = outline.boundingRect();
  m_painter.fillPath(outline, downwards(bounds.top(), bounds.bottom(), top, bottom));
}

void Scenery::disc(QPointF centre, double radius, QColor top, QColor bottom) {
  QPainterPath outline;
  outline.addEllipse(centre, radius, radius);
  shape(outline, top, bottom);
}

void Scenery::glow(QPointF centre, double radius, QColor colour) {
  QRadialGradient gradient(centre, radius);
  gradient.setColorAt(0, colour);
  QColor half = colour;
  // Half way a third is left: light falls off faster than in a straight line.
  half.setAlpha(colour.alpha() / 3);
  gradient.setColorAt(0.5, half);
  gradient.setColorAt(1, transparent(colour));
  m_painter.fillRect(square, gradient);
}

void Scenery::gleam(QPointF centre, double halfWidth, double halfHeight, QColor colour) {
  const QPointF along(halfWidth, 0);
  const QPointF up(0, -2 * halfHeight);
  QPainterPath lens(centre - along);
  lens.quadTo(centre + up, centre + along);
  lens.quadTo(centre - up, centre - along);
  m_painter.fillPath(lens, colour);
}

}  // namespace mireval
