#include "ui/PanelShadow.h"

#include <QImage>
#include <QPointF>
#include <QQuickWindow>
#include <QRectF>
#include <QSGImageNode>
#include <QSGTexture>
#include <QSize>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>

namespace mireval {
namespace {

// In device-independent pixels. The standard deviation of the blur, and how far the light is above.
constexpr double blur = 5;
constexpr double drop = 2;
// Further inside, the shadow is even.
constexpr double blurReach = 3 * blur;

struct Shadow {
  QColor color;
  double inset;
  double radius;
};

/// From the shadow's unblurred edge, which is at `inset`, to a point at this distance from a corner's two
/// sides. Negative inside.
double distance(const Shadow& shadow, double x, double y) {
  const double side = std::max(shadow.inset - x, shadow.inset - y);
  const double fromCentreX = shadow.inset + shadow.radius - x;
  const double fromCentreY = shadow.inset + shadow.radius - y;
  return fromCentreX > 0 && fromCentreY > 0 ? std::hypot(fromCentreX, fromCentreY) - shadow.radius : side;
}

/// How much of the shadow an edge leaves after a Gaussian blur.
double strength(double distance) {
  return 0.5 * std::erfc(distance / (blur * std::numbers::sqrt2));
}

/// The shadow of a rectangle with corners of this many pixels and one pixel between them.
QImage picture(const Shadow& shadow, int corner, double scale) {
  const int side = 2 * corner + 1;
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  const auto fromEnd = [&](int pixel) { return (std::min(pixel, side - 1 - pixel) + 0.5) / scale; };
  for (int row = 0; row < side; ++row) {
    auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(row));
    const double y = fromEnd(row) + (row <= corner ? -drop : drop);
    for (int column = 0; column <= corner; ++column) {
      QColor color = shadow.color;
      color.setAlphaF(static_cast<float>(color.alphaF() * strength(distance(shadow, fromEnd(column), y))));
      pixels[column] = pixels[side - 1 - column] = qPremultiply(color.rgba());
    }
  }
  return image;
}

/// Owns the picture that its children show.
class ShadowNode final : public QSGNode {
 public:
  ShadowNode(QQuickWindow& window, const QImage& image) : m_picture(window.createTextureFromImage(image)) {}

  QSGTexture* picture() const { return m_picture.get(); }

 private:
  const std::unique_ptr<QSGTexture> m_picture;
};

}  // namespace

PanelShadow::PanelShadow(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &PanelShadow::changed, this, &PanelShadow::update);
}

QSGNode* PanelShadow::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/) {
  delete old;
  const double scale = window()->effectiveDevicePixelRatio();
  // In pixels of the screen, so that nothing is scaled.
  const QSize pixels = (size() * scale).toSize();
  const int corner = std::min({static_cast<int>(std::ceil((m_inset + m_radius + blurReach) * scale)),
                               (pixels.width() - 1) / 2, (pixels.height() - 1) / 2});
  if (corner <= 0) {
    return nullptr;
  }
  auto node = std::make_unique<ShadowNode>(
      *window(), picture({.color = m_color, .inset = m_inset, .radius = m_radius}, corner, scale));
  const std::array from{0, corner, corner + 1, 2 * corner + 1};
  const std::array toX{0, corner, pixels.width() - corner, pixels.width()};
  const std::array toY{0, corner, pixels.height() - corner, pixels.height()};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      if (row == 1 && column == 1) {
        // The rectangle hides it.
        continue;
      }
      QSGImageNode* const part = window()->createImageNode();
      part->setTexture(node->picture());
      part->setFiltering(QSGTexture::Nearest);
      part->setSourceRect(
          QRectF(QPointF(from.at(column), from.at(row)), QPointF(from.at(column + 1), from.at(row + 1))));
      part->setRect(QRectF(QPointF(toX.at(column), toY.at(row)) / scale,
                           QPointF(toX.at(column + 1), toY.at(row + 1)) / scale));
      node->appendChildNode(part);
    }
  }
  return node.release();
}

void PanelShadow::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  update();
}

void PanelShadow::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemDevicePixelRatioHasChanged) {
    update();
  }
}

}  // namespace mireval
