#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <array>
#include <functional>
#include <vector>

namespace mireval {

/// A picture painted from nothing but sizes and colours, without the toolkit: each pixel takes of a shape's
/// colour what the shape covers of it. Positions are device-independent pixels of the panel's window.
class ComputedPicture {
 public:
  /// Whether a point is inside.
  using Shape = std::function<bool(double x, double y)>;

  static Shape rectangle(QRectF bounds);
  static Shape circle(QPointF centre, double radius);
  /// What a line of width 1 along the circle covers.
  static Shape outline(QPointF centre, double radius);
  /// A bar with round ends.
  static Shape capsule(QRectF bounds);

  /// Transparent at first; only what lies in `area` is painted and compared.
  ComputedPicture(QRectF area, double scale);

  void paint(const Shape& shape, const QColor& color);

  /// The largest difference of a channel, 0...255, in all pixels that are whole in the area and not in
  /// `ignored`.
  int largestDifference(const QImage& picture, QRectF ignored = {}) const;

 private:
  /// Red, green, blue times alpha, and alpha, all 0...1.
  using Pixel = std::array<double, 4>;

  double coverage(const Shape& shape, int x, int y) const;

  const double m_scale;
  // In pixels of the screen.
  const QRect m_area;
  std::vector<Pixel> m_pixels;
};

}  // namespace mireval
