#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <initializer_list>

namespace mireval {

/// The side of the square that a picture fills, from (0, 0).
inline constexpr double pictureSide = 1000;
inline constexpr QPointF middle(pictureSide / 2, pictureSide / 2);

/// Angles are in degrees, clockwise, from the direction to the right.
QPointF polar(QPointF centre, double radius, double degrees);

QRectF squareAround(QPointF centre, double halfSide);
QPainterPath circle(QPointF centre, double radius);
/// The part of a ring that starts at the angle `from` and goes on for `sweep`. An inner radius of 0 gives a
/// slice.
QPainterPath ringSector(QPointF centre, double inner, double outer, double from, double sweep);
QPainterPath polygon(std::initializer_list<QPointF> corners);

/// The colour at `share` of the way, 0 to 1, from `from` to `to`.
QColor mix(QColor from, QColor to, double share);

}  // namespace mireval
