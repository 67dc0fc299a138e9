#include "platform/qt/StandardError.h"

#include <gtest/gtest.h>

#include <QtGlobal>

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

TEST(StandardErrorTest, OfQtsMessagesThoseAreLeftOutThatWereExpected) {
  StandardError::takeQtMessages();
  testing::internal::CaptureStderr();
  qWarning("Failed to load client buffer integration: \"none\"");
  qWarning("Failed to load client buffer integration: \"other\"");
  qWarning("The cached device pixel ratio value was stale on window update.  Please file");
  qInstallMessageHandler(nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to load client buffer integration: \"other\"\n");
}

}  // namespace
}  // namespace mireval
