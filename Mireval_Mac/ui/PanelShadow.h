#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickItem>

namespace mireval {

/// A QML item that draws the soft shadow of a rounded rectangle in its middle. Between the corners the shadow
/// is the same all along, so its picture is that of a small rectangle, and costs the less.
class PanelShadow : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// Of the shadow where nothing blurs it.
  Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
  /// From the item's edges to the rectangle, in device-independent pixels. The shadow ends at 16.
  Q_PROPERTY(double inset MEMBER m_inset NOTIFY changed)
  /// Of the rectangle's corners, in device-independent pixels.
  Q_PROPERTY(double radius MEMBER m_radius NOTIFY changed)

 public:
  explicit PanelShadow(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void changed();

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  QColor m_color;
  double m_inset = 0;
  double m_radius = 0;
};

}  // namespace mireval
