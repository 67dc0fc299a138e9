#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>

namespace mireval {

/// The outline of a rectangle whose corners bend gradually: nowhere does its curvature jump. The middle of
/// each corner is an arc of the given radius, and a cubic Bézier curve joins it to each edge, after the
/// construction in D. Furse, "Desperately seeking squircles" (Figma, 2018), with a smoothing of 0.6: 36 of
/// the corner's 90 degrees are left to the arc, and the corner reaches 1.6 radii along each edge. The curve's
/// curvature is zero at the edge, where its first three points are in line, and 1 / radius at the arc.
///
/// Edges too short for that get shorter joints, and then a smaller radius: a radius of half the height is a
/// capsule. An empty rectangle or a radius of 0 or less gives the plain rectangle.
QPainterPath continuousRectangle(const QRectF& rectangle, qreal radius);

/// The same outline, at the origin, as SVG path data.
QString continuousRectangleData(qreal width, qreal height, qreal radius);

}  // namespace mireval
