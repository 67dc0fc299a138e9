#pragma once

#include <QImage>
#include <QPointF>
#include <QRectF>

#include <functional>
#include <vector>

namespace mireval {

/// What was drawn on an even ground, as seen in a picture: for each pixel the share, 0...1, that it covers.
/// Places are device-independent pixels of the panel's window.
class Ink {
 public:
  /// A separate part: pixels that the ink covers by half or more and that touch at a side or a corner.
  struct Part {
    int pixels = 0;
    double largestCoverage = 0;
  };

  /// Reads the pixels within the bounds whose middle is in the area. `ground` is a place in the picture
  /// without ink, `full` the grey value of the ink itself.
  Ink(const QImage& picture, double scale, QRectF bounds, const std::function<bool(QPointF)>& area,
      QPointF ground, int full);

  /// In square points.
  double amount() const;
  QPointF centroid() const;
  /// The smallest box around all ink, exact to a part of a pixel.
  QRectF box() const;
  std::vector<Part> parts() const;
  /// Of each pixel with ink.
  void forEach(const std::function<void(QPointF place, double coverage)>& visit) const;

 private:
  double at(int x, int y) const {
    return m_coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                      static_cast<std::size_t>(x)];
  }

  QPointF middleOf(int x, int y) const { return (m_origin + QPointF(x + 0.5, y + 0.5)) / m_scale; }

  double m_scale;
  QPoint m_origin;
  int m_width;
  int m_height;
  std::vector<double> m_coverage;
};

}  // namespace mireval
