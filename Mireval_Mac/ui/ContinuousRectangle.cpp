#include "ui/ContinuousRectangle.h"

#include <QPointF>
#include <QTextStream>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

namespace mireval {
namespace {

constexpr qreal smoothing = 0.6;

struct Corner {
  QPointF at;
  /// Unit vectors from the corner along its two edges, in the direction of drawing.
  QPointF back;
  QPointF onward;
};

/// Adds the corners' curves, with straight lines between them. `reach` is how far each goes along its edges.
void addCorners(QPainterPath& path, const std::array<Corner, 4>& corners, qreal radius, qreal reach) {
  const qreal jointAngle = qDegreesToRadians(45 * smoothing);
  const qreal sine = std::sin(jointAngle);
  const qreal cosine = std::cos(jointAngle);
  const qreal tangent = std::tan(jointAngle / 2);
  // Of the arc's ends, from the corner. From here on lengths are in radii.
  const qreal far = 1 - sine;
  const qreal near = 1 - cosine;
  // Of the joint's control points along the edge. The curvature at a cubic's end is 2/3 of the distance
  // between its control points times the sine of the angle there, by the square of the last one's distance.
  const qreal outerControl = far + tangent * cosine;
  const qreal innerControl = outerControl + 1.5 * tangent * tangent / sine;
  const qreal arcControl = 4.0 / 3 * std::tan((M_PI_2 - 2 * jointAngle) / 4);

  const qreal needed = std::max(innerControl, std::min(reach / radius, 1 + smoothing));
  const qreal unit = std::min(radius, reach / needed);
  for (const Corner& corner : corners) {
    const auto point = [&](qreal behind, qreal ahead) {
      return corner.at + unit * (behind * corner.back + ahead * corner.onward);
    };
    const QPointF begin = point(needed, 0);
    path.elementCount() == 0 ? path.moveTo(begin) : path.lineTo(begin);
    path.cubicTo(point(innerControl, 0), point(outerControl, 0), point(far, near));
    path.cubicTo(point(far - arcControl * cosine, near + arcControl * sine),
                 point(near + arcControl * sine, far - arcControl * cosine), point(near, far));
    path.cubicTo(point(0, outerControl), point(0, innerControl), point(0, needed));
  }
  path.closeSubpath();
}

}  // namespace

QPainterPath continuousRectangle(const QRectF& rectangle, qreal radius) {
  QPainterPath path;
  const qreal reach = std::min(rectangle.width(), rectangle.height()) / 2;
  // Written so that NaN is refused too.
  if (!(radius > 0) || !(reach > 0)) {
    path.addRect(rectangle);
    return path;
  }
  const QPointF right(1, 0);
  const QPointF down(0, 1);
  addCorners(path,
             {Corner{rectangle.topRight(), -right, down}, Corner{rectangle.bottomRight(), -down, -right},
              Corner{rectangle.bottomLeft(), right, -down}, Corner{rectangle.topLeft(), down, right}},
             radius, reach);
  return path;
}

QString continuousRectangleData(qreal width, qreal height, qreal radius) {
  const QPainterPath path = continuousRectangle({0, 0, width, height}, radius);
  QString data;
  QTextStream stream(&data);
  for (int index = 0; index < path.elementCount(); ++index) {
    const QPainterPath::Element& element = path.elementAt(index);
    static constexpr std::array commands{"M", "L", "C", ""};
    stream << commands.at(element.type) << ' ' << element.x << ' ' << element.y << ' ';
  }
  stream << 'Z';
  return data;
}

}  // namespace mireval
