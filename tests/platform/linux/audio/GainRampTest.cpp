#include "platform/linux/audio/GainRamp.h"

#include <gtest/gtest.h>

#include <vector>

namespace mireval::test {
namespace {

TEST(GainRampTest, IsConstantWithoutAChange) {
  const GainRamp ramp(0.65F);
  EXPECT_FLOAT_EQ(ramp.at(0), 0.65F);
  EXPECT_FLOAT_EQ(ramp.at(1'000'000), 0.65F);
}

TEST(GainRampTest, RunsStraightFromTheOldGainToTheNew) {
  GainRamp ramp(1);
  ramp.changeTo(0.5F, 1000, 100);
  EXPECT_FLOAT_EQ(ramp.at(1000), 1);
  EXPECT_FLOAT_EQ(ramp.at(1050), 0.75F);
  EXPECT_FLOAT_EQ(ramp.at(1100), 0.5F);
  EXPECT_FLOAT_EQ(ramp.at(5000), 0.5F);
  EXPECT_FLOAT_EQ(ramp.target(), 0.5F);
}

TEST(GainRampTest, StartsANewChangeWhereTheOldOneHasGot) {
  GainRamp ramp(1);
  ramp.changeTo(0, 1000, 100);
  ramp.changeTo(1, 1050, 100);
  EXPECT_FLOAT_EQ(ramp.at(1050), 0.5F);
  EXPECT_FLOAT_EQ(ramp.at(1100), 0.75F);
  EXPECT_FLOAT_EQ(ramp.at(1150), 1);
}

TEST(GainRampTest, ScalesBothSidesOfEachFrame) {
  GainRamp ramp(1);
  ramp.changeTo(0, 10, 2);
  std::vector<float> samples(10, 0.8F);
  ramp.apply(9, samples);
  const std::vector<float> expected{0.8F, 0.8F, 0.8F, 0.8F, 0.4F, 0.4F, 0, 0, 0, 0};
  EXPECT_EQ(samples, expected);
}

}  // namespace
}  // namespace mireval::test
