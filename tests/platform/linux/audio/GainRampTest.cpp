#include "platform/linux/audio/GainRamp.h"

#include <gtest/gtest.h>

#include <array>

namespace mireval::test {
namespace {

TEST(GainRampTest, RunsStraightFromTheOldGainToTheNew) {
  GainRamp ramp(1);
  EXPECT_FLOAT_EQ(ramp.at(0), 1);
  EXPECT_FLOAT_EQ(ramp.at(1'000'000), 1);
  ramp.changeTo(0.5F, 1000, 100);
  EXPECT_FLOAT_EQ(ramp.at(1000), 1);
  EXPECT_FLOAT_EQ(ramp.at(1050), 0.75F);
  EXPECT_FLOAT_EQ(ramp.at(1100), 0.5F);
  EXPECT_FLOAT_EQ(ramp.at(5000), 0.5F);
}

TEST(GainRampTest, StartsANewChangeAtTheGainThatTheOldOneHasReached) {
  GainRamp ramp(1);
  ramp.changeTo(0, 1000, 100);
  ramp.changeTo(1, 1050, 100);
  EXPECT_FLOAT_EQ(ramp.at(1050), 0.5F);
  EXPECT_FLOAT_EQ(ramp.at(1100), 0.75F);
  EXPECT_FLOAT_EQ(ramp.at(1150), 1);
}

TEST(GainRampTest, ScalesBothSidesOfEachFrameToSixteenBits) {
  GainRamp ramp(1);
  ramp.changeTo(0.25F, 10, 2);
  constexpr std::array samples{0.5F, -0.5F, 0.5F, 2.0F, 0.5F, -2.0F, 0.5F, 0.00007F};
  std::array<std::int16_t, 8> scaled{};
  ramp.apply(9, samples, scaled);
  constexpr std::array<std::int16_t, 8> expected{16384, -16384, 16384, 32767, 10240, -32768, 4096, 1};
  EXPECT_EQ(scaled, expected);
}

}  // namespace
}  // namespace mireval::test
