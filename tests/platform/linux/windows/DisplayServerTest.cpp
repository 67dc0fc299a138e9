#include "platform/linux/windows/DisplayServer.h"

#include "FakeCompositor.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include <layer-shell-client-protocol.h>
#include <sys/socket.h>
#include <unistd.h>
#include <viewporter-client-protocol.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
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

  std::string takeWaylandPath() {
    const std::string path = m_folder.filePath(u"wayland"_s).toStdString();
    qputenv("WAYLAND_DISPLAY", QByteArray::fromStdString(path));
    return path;
  }

  void makeSilentWayland() {
    m_wayland = makeSilentServer(*unixSocketAddress(takeWaylandPath()), sizeof(sockaddr_un));
  }

  void makeWayland(std::span<const wl_interface* const> offered = {}) {
    m_compositor.emplace(takeWaylandPath(), offered);
  }

  const QByteArray m_displayBefore = qgetenv("DISPLAY");
  const QByteArray m_waylandBefore = qgetenv("WAYLAND_DISPLAY");
  const QTemporaryDir m_folder;
  FileDescriptor m_x11;
  FileDescriptor m_wayland;
  std::optional<FakeCompositor> m_compositor;
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

constexpr std::array layers{&zwlr_layer_shell_v1_interface, &wp_viewporter_interface};

TEST_F(DisplayServerTest, WaylandComesFirstWhereItHasLayers) {
  makeWayland(layers);
  const UsableDisplays displays = findUsableDisplays({});
  EXPECT_EQ(displays.platforms, "wayland;xcb");
  EXPECT_TRUE(displays.hasLayers);
  // What the user wants comes before.
  EXPECT_EQ(findUsableDisplays("wayland").platforms, "wayland");
  EXPECT_TRUE(findUsableDisplays("wayland").hasLayers);
  EXPECT_EQ(findUsableDisplays("offscreen;wayland").platforms, "offscreen;wayland");
  EXPECT_FALSE(findUsableDisplays("offscreen;wayland").hasLayers);
}

TEST_F(DisplayServerTest, AnXServerThatDoesNotAnswerDoesNotMatterWhereWaylandHasLayers) {
  makeSilentX11();
  makeWayland(layers);
  const UsableDisplays displays = findUsableDisplays({});
  EXPECT_EQ(displays.platforms, "wayland;xcb");
  EXPECT_FALSE(displays.x11IsSilent);
}

TEST_F(DisplayServerTest, X11ComesFirstWhereWaylandHasNoLayers) {
  makeWayland();
  // There is no X server.
  EXPECT_EQ(findUsableDisplays({}).platforms, "wayland");
  EXPECT_FALSE(findUsableDisplays({}).hasLayers);
  makeSilentX11();
  const UsableDisplays displays = findUsableDisplays({}, 1s);
  EXPECT_EQ(displays.platforms, "wayland");
  EXPECT_TRUE(displays.x11IsSilent);
}

TEST_F(DisplayServerTest, LayersNeedWhatStretchesAPixel) {
  makeWayland(std::array{&zwlr_layer_shell_v1_interface});
  EXPECT_FALSE(findUsableDisplays({}).hasLayers);
}

TEST_F(DisplayServerTest, ASilentCompositorIsPassedOver) {
  makeSilentWayland();
  const auto start = Clock::now();
  const UsableDisplays displays = findUsableDisplays({}, 1s);
  EXPECT_EQ(displays.platforms, "");
  EXPECT_TRUE(displays.waylandIsSilent);
  EXPECT_GE(Clock::now() - start, 900ms);
  // It is asked once.
  EXPECT_LT(Clock::now() - start, 1900ms);
}

TEST_F(DisplayServerTest, AConnectionThatSomebodyElseHasMadeIsLeftToQt) {
  makeSilentWayland();
  qputenv("WAYLAND_SOCKET", "1000");
  const UsableDisplays displays = findUsableDisplays({});
  qunsetenv("WAYLAND_SOCKET");
  EXPECT_EQ(displays.platforms, "wayland");
  EXPECT_FALSE(displays.hasLayers);
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
