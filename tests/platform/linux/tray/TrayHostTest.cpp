#include "platform/linux/tray/TrayHost.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

constexpr QPoint pointer(1147, 772);
constexpr QPoint farAway(1259, 788);

TEST(TrayHostTest, OnlyHostsThatPassRightClicksOnNeedNoMenu) {
  for (const char* const process :
       {"waybar", "swaybar", "lxqt-panel", "notification-ar", "xapp-sn-watcher", "kded5"}) {
    EXPECT_FALSE(TrayHost(process).needsMenu()) << process;
  }
  for (const char* const process :
       {"", "gnome-shell", "xfce4-panel", "wrapper-2.0", "another", "waybar2", "way"}) {
    EXPECT_TRUE(TrayHost(process).needsMenu()) << process;
  }
}

TEST(TrayHostTest, WhereThePointerIsKnownItDecides) {
  for (const char* const process : {"", "waybar", "kded5", "xapp-sn-watcher", "another"}) {
    EXPECT_EQ(TrayHost(process).placeOf({.told = QPoint(1141, 760), .pointer = pointer}), pointer) << process;
    EXPECT_EQ(TrayHost(process).placeOf({.told = std::nullopt, .pointer = pointer}), pointer) << process;
    EXPECT_EQ(TrayHost(process).placeOf({.told = farAway, .pointer = QPoint(0, 0)}), QPoint(0, 0)) << process;
  }
}

TEST(TrayHostTest, WithoutThePointerTheHostIsBelieved) {
  for (const char* const process : {"", "kded5", "gnome-shell", "swaybar", "another"}) {
    EXPECT_EQ(TrayHost(process).placeOf({.told = farAway, .pointer = std::nullopt}), farAway) << process;
    EXPECT_EQ(TrayHost(process).placeOf({.told = std::nullopt, .pointer = std::nullopt}), std::nullopt);
  }
}

TEST(TrayHostTest, WaybarTellsPositionsInsideItsIcon) {
  for (const QPoint told : {QPoint(10, 14), QPoint(0, 0), farAway}) {
    EXPECT_EQ(TrayHost("waybar").placeOf({.told = told, .pointer = std::nullopt}), std::nullopt);
  }
}

TEST(TrayHostTest, AnUnknownHostMayTellPositionsInsideItsIcon) {
  for (const char* const process : {"", "another"}) {
    const TrayHost host{process};
    for (const QPoint told : {QPoint(0, 0), QPoint(10, 14), QPoint(64, 64), QPoint(64, 0), QPoint(0, 64)}) {
      EXPECT_EQ(host.placeOf({.told = told, .pointer = std::nullopt}), std::nullopt) << told.x();
    }
    for (const QPoint told :
         {QPoint(65, 0), QPoint(0, 65), QPoint(10, 788), QPoint(1270, 10), QPoint(-1, 10), QPoint(10, -1)}) {
      EXPECT_EQ(host.placeOf({.told = told, .pointer = std::nullopt}), told) << process;
    }
  }
}

TEST(TrayHostTest, ACornerIsACornerOfHostsThatTellPositionsOnTheDesktop) {
  for (const char* const process : {"kded5", "gnome-shell", "swaybar"}) {
    EXPECT_EQ(TrayHost(process).placeOf({.told = QPoint(10, 14), .pointer = std::nullopt}), QPoint(10, 14))
        << process;
  }
}

}  // namespace
}  // namespace mireval
