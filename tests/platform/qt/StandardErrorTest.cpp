#include "platform/qt/StandardError.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

TEST(StandardErrorTest, SaysEachNoticeAfterTheProgramsName) {
  StandardError notices;
  testing::internal::CaptureStderr();
  notices.say("no display answers");
  notices.say("100 %s %n\nand a second line");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "mireval: no display answers\nmireval: 100 %s %n\nand a second line\n");
}

}  // namespace
}  // namespace mireval
