#include "ui/CorvaneAppearance.h"

namespace mireval {
namespace {

QColor white(float opacity) {
  return QColor::fromRgbF(1, 1, 1, opacity);
}

QColor black(float opacity) {
  return QColor::fromRgbF(0, 0, 0, opacity);
}

}  // namespace

CorvaneAppearance::CorvaneAppearance(bool darkColorScheme) {
  if (darkColorScheme) {
    canvas = QColor(13, 16, 21);
    elevatedCanvas = QColor(18, 23, 34);
    primaryText = white(0.96F);
    secondaryText = white(0.66F);
    glassFill = white(0.06F);
    glassStroke = white(0.1F);
    panelFill = black(0.18F);
    heroFill = black(0.22F);
    quoteFill = white(0.05F);
    shadow = black(0.28F);
    noiseColor = white(1);
    lightOverlay = white(0.05F);
    strongOverlay = black(0.26F);
  } else {
    canvas = QColor(246, 243, 237);
    elevatedCanvas = QColor(245, 241, 234);
    primaryText = QColor(18, 19, 23);
    secondaryText = QColor(98, 101, 108);
    glassFill = white(0.56F);
    glassStroke = white(0.78F);
    panelFill = white(0.52F);
    heroFill = white(0.52F);
    quoteFill = white(0.72F);
    shadow = black(0.1F);
    noiseColor = black(1);
    lightOverlay = white(0.12F);
    strongOverlay = black(0.14F);
  }
}

}  // namespace mireval
