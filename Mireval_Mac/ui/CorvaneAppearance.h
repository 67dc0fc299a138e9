#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>

namespace mireval {

/// The colours of the interface by their role, for a dark scheme and for any other. All are sRGB.
struct CorvaneAppearance {
  Q_GADGET
  QML_ANONYMOUS
  Q_PROPERTY(QColor canvas MEMBER canvas CONSTANT)
  Q_PROPERTY(QColor elevatedCanvas MEMBER elevatedCanvas CONSTANT)
  Q_PROPERTY(QColor primaryText MEMBER primaryText CONSTANT)
  Q_PROPERTY(QColor secondaryText MEMBER secondaryText CONSTANT)
  Q_PROPERTY(QColor glassFill MEMBER glassFill CONSTANT)
  Q_PROPERTY(QColor glassStroke MEMBER glassStroke CONSTANT)
  Q_PROPERTY(QColor panelFill MEMBER panelFill CONSTANT)
  Q_PROPERTY(QColor heroFill MEMBER heroFill CONSTANT)
  Q_PROPERTY(QColor quoteFill MEMBER quoteFill CONSTANT)
  Q_PROPERTY(QColor shadow MEMBER shadow CONSTANT)
  Q_PROPERTY(QColor noiseColor MEMBER noiseColor CONSTANT)
  Q_PROPERTY(QColor lightOverlay MEMBER lightOverlay CONSTANT)
  Q_PROPERTY(QColor strongOverlay MEMBER strongOverlay CONSTANT)

 public:
  /// All colours are invalid.
  CorvaneAppearance() = default;
  explicit CorvaneAppearance(bool darkColorScheme);

  /// The base background.
  QColor canvas;
  /// A raised background.
  QColor elevatedCanvas;
  QColor primaryText;
  QColor secondaryText;
  /// Translucent surfaces, and their outline.
  QColor glassFill;
  QColor glassStroke;
  /// Small panels.
  QColor panelFill;
  /// The large area at the top.
  QColor heroFill;
  QColor quoteFill;
  QColor shadow;
  /// A texture of noise.
  QColor noiseColor;
  QColor lightOverlay;
  QColor strongOverlay;
};

}  // namespace mireval
