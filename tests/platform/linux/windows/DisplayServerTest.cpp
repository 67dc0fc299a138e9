#include "platform/linux/windows/DisplayServer.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <string>

#include <sys/socket.h>
#include <unistd.h>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Accepts connections and never answers.
FileDescriptor makeSilentServer(const sockaddr_un& address, socklen_t size) {
  FileDescriptor server(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  EXPECT_EQ(bind(server.get(), reinterpret_cast<const sockaddr*>(&address), size), 0);
  EXPECT_EQ(listen(server.get(), 8), 0);
  return server;
}

class DisplayServerTest : public testing::Test {
 protected:
  DisplayServerTest() {
    qputenv("DISPLAY", QByteArray());
    qputenv("WAYLAND_DISPLAY", QByteArray());
  }

  ~DisplayServerTest() override {
    qputenv("DISPLAY", m_displayBefore);
    qputenv("WAYLAND_DISPLAY", m_waylandBefore);
  }

  /// The number is that of this process, which no other display has.
  void makeSilentX11() {
    const std::string number = std::to_string(getpid());
    const std::string path = '\0' + ("/tmp/.X11-unix/X" + number);
    m_x11 = makeSilentServer(*unixSocketAddress(path),
                             static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size()));
    qputenv("DISPLAY", QByteArray::fromStdString(":" + number));
  }

  void makeWayland() {
    const std::string path = m_folder.filePath(QStringLiteral("wayland")).toStdString();
    m_wayland = makeSilentServer(*unixSocketAddress(path), sizeof(sockaddr_un));
    qputenv("WAYLAND_DISPLAY", QByteArray::fromStdString(path));
  }

  const QByteArray m_displayBefore = qgetenv("DISPLAY");
  const QByteArray m_waylandBefore = qgetenv("WAYLAND_DISPLAY");
  const QTemporaryDir m_folder;
  FileDescriptor m_x11;
  FileDescriptor m_wayland;
};

TEST_F(DisplayServerTest, WithoutADisplayNothingIsUsable) {
  EXPECT_EQ(findUsableDisplays("xcb;wayland").platforms, "");
  qputenv("DISPLAY", "nonsense");
  qputenv("WAYLAND_DISPLAY", "/nowhere");
  const UsableDisplays displays = findUsableDisplays("xcb;wayland");
  EXPECT_EQ(displays.platforms, "");
  EXPECT_FALSE(displays.x11IsSilent);
}

TEST_F(DisplayServerTest, APlatformWithoutADisplayIsAlwaysUsable) {
  EXPECT_EQ(findUsableDisplays("offscreen").platforms, "offscreen");
  EXPECT_EQ(findUsableDisplays("xcb;minimal;wayland").platforms, "minimal;wayland");
}

TEST_F(DisplayServerTest, ASilentX11ServerIsPassedOver) {
  makeSilentX11();
  const auto start = Clock::now();
  UsableDisplays displays = findUsableDisplays("xcb", 1s);
  EXPECT_EQ(displays.platforms, "");
  EXPECT_TRUE(displays.x11IsSilent);
  makeWayland();
  displays = findUsableDisplays("xcb;wayland", 1s);
  EXPECT_EQ(displays.platforms, "wayland");
  EXPECT_TRUE(displays.x11IsSilent);
  EXPECT_GE(Clock::now() - start, 1900ms);
  EXPECT_LT(Clock::now() - start, 10s);
}

TEST_F(DisplayServerTest, ASilentX11ServerIsNotAskedWhereAnotherComesFirst) {
  makeSilentX11();
  makeWayland();
  const UsableDisplays displays = findUsableDisplays("wayland;xcb", 5s);
  EXPECT_EQ(displays.platforms, "wayland;xcb");
  EXPECT_FALSE(displays.x11IsSilent);
}

// Starts with the name of the tests that run on an X server.
TEST(X11DisplayServer, AScreenThatIsNotThereIsNotUsable) {
  const QByteArray display = qgetenv("DISPLAY");
  if (qgetenv("QT_QPA_PLATFORM") == "offscreen") {
    GTEST_SKIP() << "no X server";
  }
  EXPECT_EQ(findUsableDisplays("xcb;wayland").platforms, "xcb;wayland");
  qputenv("DISPLAY", display + ".1");
  EXPECT_EQ(findUsableDisplays("xcb").platforms, "");
  qputenv("DISPLAY", display + ".0");
  EXPECT_EQ(findUsableDisplays("xcb").platforms, "xcb");
  qputenv("DISPLAY", display);
}

}  // namespace
}  // namespace mireval
