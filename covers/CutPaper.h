#pragma once

#include "CoverRandom.h"

#include <QColor>
#include <QPainterPath>
#include <QPointF>

class QPainter;

namespace mireval {

/// Shapes cut out of paper, slightly irregular, on a sheet from (0, 0) to (1000, 1000).
class CutPaper {
 public:
  /// `seed` decides the irregularities.
  CutPaper(QPainter& painter, QColor ground, std::uint32_t seed);

  /// Lays thin paper; the sheets below shine through and tint it.
  void lay(const QPainterPath& shape, QColor colour);
  /// Glues thick paper.
  void glue(const QPainterPath& shape, QColor colour);

  /// A round or oval stone; `angle` is in degrees, clockwise.
  QPainterPath stone(QPointF centre, double halfWidth, double halfHeight, double angle = 0);
  /// Pointed at both ends, widest nearer to its base.
  QPainterPath leaf(QPointF base, QPointF tip, double width);
  /// Pointed at its base, round at its tip.
  QPainterPath petal(QPointF base, QPointF tip, double width);
  /// A ribbon along a smooth line, of a width that varies a little.
  QPainterPath ribbon(const QPolygonF& line, double width);

 private:
  double tremble(double size) { return size * m_random.between(-1, 1); }

  QPainter& m_painter;
  CoverRandom m_random;
};

}  // namespace mireval
