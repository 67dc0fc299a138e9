#include "ui/PanelShape.h"

#include "ui/ContinuousRectangle.h"

#include <QPolygonF>
#include <QRect>
#include <QRectF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace mireval {
namespace {

// Half of the outline's width is outside of the panel.
constexpr double outlineReach = 0.5;
// Keeps a middle that lies on the edge inside in spite of rounding.
constexpr double tolerance = 1e-3;

/// Where the polygon begins on that line, from the left. Infinite if it is not there.
double beginningAt(const QPolygonF& polygon, double y) {
  double beginning = std::numeric_limits<double>::infinity();
  for (qsizetype index = 1; index < polygon.size(); ++index) {
    const QPointF& from = polygon[index - 1];
    const QPointF& to = polygon[index];
    if ((from.y() > y) != (to.y() > y)) {
      beginning = std::min(beginning, from.x() + (to.x() - from.x()) * (y - from.y()) / (to.y() - from.y()));
    }
  }
  return beginning;
}

/// How many pixels are missing on the left of each row, from the top to the middle; the width for rows
/// without any.
std::vector<int> insets(const QSize& window, double scale, double margin, double radius) {
  const double edge = margin - outlineReach;
  const QSizeF points = QSizeF(window) / scale;
  const QRectF outline(edge, edge, points.width() - 2 * edge, points.height() - 2 * edge);
  const QPolygonF polygon =
      continuousRectangle(outline, radius + outlineReach).toFillPolygon(QTransform::fromScale(scale, scale));
  std::vector<int> insets;
  for (int row = 0; row < (window.height() + 1) / 2; ++row) {
    const double first = std::ceil(beginningAt(polygon, row + 0.5 + tolerance) - 0.5 - tolerance);
    insets.push_back(static_cast<int>(std::clamp(first, 0.0, static_cast<double>(window.width()))));
  }
  return insets;
}

}  // namespace

QRegion panelShape(const QSize& window, double scale, double margin, double radius) {
  QRegion shape;
  int top = 0;
  for (const int inset : insets(window, scale, margin, radius)) {
    const int width = window.width() - 2 * inset;
    if (width > 0) {
      shape += QRect(inset, top, width, 1);
      shape += QRect(inset, window.height() - 1 - top, width, 1);
    }
    ++top;
  }
  return shape;
}

}  // namespace mireval
