#include "platform/linux/audio/PulseSocketWatcher.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace mireval::test {
namespace {

/// Where the server's socket is looked for with these variables.
std::string socketWith(const char* server, const char* pulseFolder, const char* userFolder) {
  setenv("PULSE_SERVER", server, 1);
  setenv("PULSE_RUNTIME_PATH", pulseFolder, 1);
  setenv("XDG_RUNTIME_DIR", userFolder, 1);
  const auto socket = PulseSocketWatcher::socket();
  return socket ? socket->string() : "none";
}

TEST(PulseSocketWatcherTest, KnowsWhereLibpulseLooksForTheSocket) {
  EXPECT_EQ(socketWith("", "", "/run/user/1"), "/run/user/1/pulse/native");
  EXPECT_EQ(socketWith("", "/tmp/p", "/run/user/1"), "/tmp/p/native");
  EXPECT_EQ(socketWith("unix:/a/b", "/tmp/p", "/run/user/1"), "/a/b");
  EXPECT_EQ(socketWith("/a/b", "/tmp/p", "/run/user/1"), "/a/b");
  EXPECT_EQ(socketWith("{0123}unix:/a/b", "", "/run/user/1"), "/a/b");
  EXPECT_EQ(socketWith(" tcp:host  /a/b /c", "", "/run/user/1"), "/a/b");
}

TEST(PulseSocketWatcherTest, KnowsNoSocketOfAServerElsewhere) {
  EXPECT_EQ(socketWith("tcp:host:4713", "/tmp/p", "/run/user/1"), "none");
  EXPECT_EQ(socketWith("host", "", "/run/user/1"), "none");
  EXPECT_EQ(socketWith("{0123", "", "/run/user/1"), "none");
  EXPECT_EQ(socketWith("{", "", "/run/user/1"), "none");
  EXPECT_EQ(socketWith("", "", ""), "none");
}

}  // namespace
}  // namespace mireval::test
