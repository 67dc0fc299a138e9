#include "ui/pictures/ComputedPicture.h"

#include <algorithm>
#include <cmath>

namespace mireval {
namespace {

QRect wholePixels(QRectF area, double scale) {
  const QPoint first(static_cast<int>(std::ceil(area.left() * scale)),
                     static_cast<int>(std::ceil(area.top() * scale)));
  const QPoint last(static_cast<int>(std::floor(area.right() * scale)) - 1,
                    static_cast<int>(std::floor(area.bottom() * scale)) - 1);
  return {first, last};
}

}  // namespace

ComputedPicture::Shape ComputedPicture::rectangle(QRectF bounds) {
  return [bounds](double x, double y) {
    return x >= bounds.left() && x < bounds.right() && y >= bounds.top() && y < bounds.bottom();
  };
}

ComputedPicture::Shape ComputedPicture::circle(QPointF centre, double radius) {
  return [centre, radius](double x, double y) { return std::hypot(x - centre.x(), y - centre.y()) < radius; };
}

ComputedPicture::Shape ComputedPicture::outline(QPointF centre, double radius) {
  return [centre, radius](double x, double y) {
    return std::abs(std::hypot(x - centre.x(), y - centre.y()) - radius) < 0.5;
  };
}

ComputedPicture::Shape ComputedPicture::capsule(QRectF bounds) {
  const double radius = bounds.height() / 2;
  return [bounds, radius](double x, double y) {
    const double axis = std::clamp(x, bounds.left() + radius, bounds.right() - radius);
    return std::hypot(x - axis, y - bounds.center().y()) < radius;
  };
}

ComputedPicture::ComputedPicture(QRectF area, double scale)
    : m_scale(scale),
      m_area(wholePixels(area, scale)),
      m_pixels(static_cast<std::size_t>(m_area.width()) * static_cast<std::size_t>(m_area.height())) {}

double ComputedPicture::coverage(const Shape& shape, int x, int y) const {
  constexpr int samples = 16;
  int inside = 0;
  for (int row = 0; row < samples; ++row) {
    for (int column = 0; column < samples; ++column) {
      inside +=
          shape((x + (column + 0.5) / samples) / m_scale, (y + (row + 0.5) / samples) / m_scale) ? 1 : 0;
    }
  }
  return static_cast<double>(inside) / (samples * samples);
}

void ComputedPicture::paint(const Shape& shape, const QColor& color) {
  auto pixel = m_pixels.begin();
  for (int y = m_area.top(); y <= m_area.bottom(); ++y) {
    for (int x = m_area.left(); x <= m_area.right(); ++x, ++pixel) {
      const double alpha = coverage(shape, x, y) * color.alphaF();
      const Pixel painted{color.redF() * alpha, color.greenF() * alpha, color.blueF() * alpha, alpha};
      std::ranges::transform(*pixel, painted, pixel->begin(),
                             [alpha](double below, double above) { return above + below * (1 - alpha); });
    }
  }
}

int ComputedPicture::largestDifference(const QImage& picture, QRectF ignored) const {
  const QImage premultiplied = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const QRectF ignoredPixels(ignored.topLeft() * m_scale, ignored.size() * m_scale);
  double largest = 0;
  auto pixel = m_pixels.begin();
  for (int y = m_area.top(); y <= m_area.bottom(); ++y) {
    const auto* const line = reinterpret_cast<const QRgb*>(premultiplied.constScanLine(y));
    for (int x = m_area.left(); x <= m_area.right(); ++x, ++pixel) {
      if (ignoredPixels.contains(x + 0.5, y + 0.5)) {
        continue;
      }
      const std::array seen{qRed(line[x]), qGreen(line[x]), qBlue(line[x]), qAlpha(line[x])};
      for (std::size_t channel = 0; channel < seen.size(); ++channel) {
        largest = std::max(largest, std::abs(seen.at(channel) - 255 * pixel->at(channel)));
      }
    }
  }
  return static_cast<int>(std::ceil(largest));
}

}  // namespace mireval
