#include "ui/CorvaneAppearance.h"

#include <gtest/gtest.h>

#include <QMetaProperty>

#include <array>

namespace mireval {
namespace {

struct Expected {
  const char* role;
  int red;
  int green;
  int blue;
  double opacity;
};

constexpr std::array light{
    Expected{"canvas", 246, 243, 237, 1},       Expected{"elevatedCanvas", 245, 241, 234, 1},
    Expected{"primaryText", 18, 19, 23, 1},     Expected{"secondaryText", 98, 101, 108, 1},
    Expected{"glassFill", 255, 255, 255, 0.56}, Expected{"glassStroke", 255, 255, 255, 0.78},
    Expected{"panelFill", 255, 255, 255, 0.52}, Expected{"heroFill", 255, 255, 255, 0.52},
    Expected{"quoteFill", 255, 255, 255, 0.72}, Expected{"shadow", 0, 0, 0, 0.1},
    Expected{"noiseColor", 0, 0, 0, 1},         Expected{"lightOverlay", 255, 255, 255, 0.12},
    Expected{"strongOverlay", 0, 0, 0, 0.14}};

constexpr std::array dark{Expected{"canvas", 13, 16, 21, 1},
                          Expected{"elevatedCanvas", 18, 23, 34, 1},
                          Expected{"primaryText", 255, 255, 255, 0.96},
                          Expected{"secondaryText", 255, 255, 255, 0.66},
                          Expected{"glassFill", 255, 255, 255, 0.06},
                          Expected{"glassStroke", 255, 255, 255, 0.1},
                          Expected{"panelFill", 0, 0, 0, 0.18},
                          Expected{"heroFill", 0, 0, 0, 0.22},
                          Expected{"quoteFill", 255, 255, 255, 0.05},
                          Expected{"shadow", 0, 0, 0, 0.28},
                          Expected{"noiseColor", 255, 255, 255, 1},
                          Expected{"lightOverlay", 255, 255, 255, 0.05},
                          Expected{"strongOverlay", 0, 0, 0, 0.26}};

void expectPalette(const CorvaneAppearance& palette, const std::array<Expected, 13>& colors) {
  const QMetaObject& properties = CorvaneAppearance::staticMetaObject;
  ASSERT_EQ(properties.propertyCount(), static_cast<int>(colors.size()));
  for (int index = 0; index < properties.propertyCount(); ++index) {
    const Expected& expected = colors.at(static_cast<std::size_t>(index));
    // In this order, and by this name for the views.
    ASSERT_STREQ(properties.property(index).name(), expected.role);
    const auto color = properties.property(index).readOnGadget(&palette).value<QColor>();
    EXPECT_EQ(color.red(), expected.red) << expected.role;
    EXPECT_EQ(color.green(), expected.green) << expected.role;
    EXPECT_EQ(color.blue(), expected.blue) << expected.role;
    // QColor keeps 16 bits of a channel.
    EXPECT_NEAR(color.alphaF(), expected.opacity, 1.0 / 65535) << expected.role;
    EXPECT_EQ(color.spec(), QColor::Rgb) << expected.role;
  }
}

TEST(CorvaneAppearanceTest, Light) {
  expectPalette(CorvaneAppearance(false), light);
}

TEST(CorvaneAppearanceTest, Dark) {
  expectPalette(CorvaneAppearance(true), dark);
}

TEST(CorvaneAppearanceTest, ComponentsAreExact) {
  const QColor canvas = CorvaneAppearance(false).canvas;
  EXPECT_NEAR(canvas.redF(), 246 / 255.0, 1e-6);
  EXPECT_NEAR(canvas.greenF(), 243 / 255.0, 1e-6);
  EXPECT_NEAR(canvas.blueF(), 237 / 255.0, 1e-6);
}

TEST(CorvaneAppearanceTest, PanelAndHeroDifferInTheDarkOnly) {
  EXPECT_EQ(CorvaneAppearance(false).panelFill, CorvaneAppearance(false).heroFill);
  EXPECT_NE(CorvaneAppearance(true).panelFill, CorvaneAppearance(true).heroFill);
}

}  // namespace
}  // namespace mireval
