#include "playback/AudioPlayerController.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace mireval {
namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

std::string timeText(double seconds) {
  return AudioPlayerController::formatTime(seconds).toStdString();
}

TEST(FormatTimeTest, Table) {
  const std::vector<std::pair<double, const char*>> textOfSeconds{
      {0, "0:00"},         {0.49, "0:00"},       {0.5, "0:01"},   {1, "0:01"},     {1.5, "0:02"},
      {2.5, "0:03"},       {9, "0:09"},          {10, "0:10"},    {59, "0:59"},    {59.4, "0:59"},
      {59.5, "1:00"},      {60, "1:00"},         {61, "1:01"},    {65, "1:05"},    {599, "9:59"},
      {600, "10:00"},      {3599.6, "60:00"},    {3600, "60:00"}, {4504, "75:04"}, {6000, "100:00"},
      {360000, "6000:00"}, {1e9, "16666666:40"},
  };
  for (const auto& [seconds, text] : textOfSeconds) {
    EXPECT_EQ(timeText(seconds), text) << seconds;
  }
}

TEST(FormatTimeTest, NegativeTimesAreZero) {
  for (const double seconds : {-0.0, -0.4, -0.5, -0.6, -3.0, -61.0, -1e18}) {
    EXPECT_EQ(timeText(seconds), "0:00") << seconds;
  }
}

TEST(FormatTimeTest, TimesThatAreNoNumberAreZero) {
  EXPECT_EQ(timeText(endless), "0:00");
  EXPECT_EQ(timeText(-endless), "0:00");
  EXPECT_EQ(timeText(std::numeric_limits<double>::quiet_NaN()), "0:00");
  EXPECT_EQ(timeText(-std::numeric_limits<double>::quiet_NaN()), "0:00");
}

TEST(FormatTimeTest, WholeRangeOf64Bits) {
  // The largest double below 2^63 is 9223372036854774784 = 60 * 153722867280912913 + 4.
  EXPECT_EQ(timeText(std::nextafter(0x1p63, 0)), "153722867280912913:04");
  EXPECT_EQ(timeText(-0x1p63), "0:00");
}

TEST(FormatTimeDeathTest, ATimeBeyond64BitsIsFatal) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(AudioPlayerController::formatTime(0x1p63), "cannot be shown");
  EXPECT_DEATH(AudioPlayerController::formatTime(1e300), "cannot be shown");
  EXPECT_DEATH(AudioPlayerController::formatTime(std::nextafter(-0x1p63, -endless)), "cannot be shown");
}

}  // namespace
}  // namespace mireval
