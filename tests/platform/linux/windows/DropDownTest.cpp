#include "platform/linux/windows/ClickCatcher.h"
#include "platform/linux/windows/DesktopPlacedDropDown.h"
#include "platform/linux/windows/GrabbingDropDown.h"
#include "platform/linux/windows/LinuxWindowSystem.h"
#include "platform/linux/windows/ManagedDropDown.h"
#include "platform/linux/windows/PopupDropDown.h"
#include "platform/linux/windows/X11Connection.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>

namespace mireval {
namespace {

template <typename Kind>
class DropDownTest : public testing::Test {
 protected:
  DropDownTest() {
    m_window.resize(100, 200);
    m_dropDown.moveTo(*QGuiApplication::primaryScreen(), place);
    m_dropDown.show();
  }

  static void send(QWindow& window, QEvent::Type type, QPoint where) {
    QMouseEvent event(type, where, where, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &event);
  }

  /// The visible window that covers the screens, or nullptr.
  static ClickCatcher* catcher() {
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
      if (auto* const found = qobject_cast<ClickCatcher*>(window); found != nullptr && found->isVisible()) {
        return found;
      }
    }
    return nullptr;
  }

  static constexpr QPoint place{300, 40};

  QRasterWindow m_window;
  Kind m_dropDown{m_window};
  QSignalSpy m_clicks{&m_dropDown, &DropDown::clickedOutside};
};

using Kinds = testing::Types<GrabbingDropDown, ManagedDropDown, PopupDropDown, DesktopPlacedDropDown>;
TYPED_TEST_SUITE(DropDownTest, Kinds);

TYPED_TEST(DropDownTest, FramelessWindowIsShownWhereItIsPut) {
  EXPECT_TRUE(this->m_window.isVisible());
  EXPECT_EQ(this->m_window.position(), this->place);
  EXPECT_TRUE(this->m_window.flags().testFlag(Qt::FramelessWindowHint));
}

TYPED_TEST(DropDownTest, TellsOfAClickOutsideOnRelease) {
  this->send(this->m_window, QEvent::MouseButtonPress, {-20, 50});
  EXPECT_EQ(this->m_clicks.size(), 0);
  this->send(this->m_window, QEvent::MouseButtonRelease, {-20, 50});
  EXPECT_EQ(this->m_clicks.size(), 1);
}

TYPED_TEST(DropDownTest, DoesNotTellOfAClickInside) {
  this->send(this->m_window, QEvent::MouseButtonPress, {20, 50});
  this->send(this->m_window, QEvent::MouseButtonRelease, {20, 50});
  this->send(this->m_window, QEvent::MouseButtonRelease, {-20, 50});
  EXPECT_EQ(this->m_clicks.size(), 0);
}

template <typename Kind>
using CatchingDropDownTest = DropDownTest<Kind>;

using CatchingKinds = testing::Types<ManagedDropDown, PopupDropDown>;
TYPED_TEST_SUITE(CatchingDropDownTest, CatchingKinds);

TYPED_TEST(CatchingDropDownTest, CoversEverythingButTheWindow) {
  const ClickCatcher* const catcher = this->catcher();
  ASSERT_NE(catcher, nullptr);
  EXPECT_EQ(catcher->geometry(), this->m_window.screen()->virtualGeometry());
  const auto coversAllBut = [&](const QRect& panel) {
    return !catcher->mask().contains(panel.center()) && !catcher->mask().contains(panel.topLeft()) &&
           catcher->mask().contains(panel.topLeft() - QPoint(1, 1));
  };
  EXPECT_TRUE(coversAllBut(this->m_window.geometry()));
  this->m_dropDown.moveTo(*this->m_window.screen(), {10, 30});
  EXPECT_EQ(this->m_window.position(), QPoint(10, 30));
  EXPECT_TRUE(coversAllBut(this->m_window.geometry()));
}

TYPED_TEST(CatchingDropDownTest, TellsOfAClickOnTheCoverOnRelease) {
  ASSERT_NE(this->catcher(), nullptr);
  // This one ends the click that opened the panel.
  this->send(*this->catcher(), QEvent::MouseButtonRelease, {5, 5});
  this->send(*this->catcher(), QEvent::MouseButtonPress, {5, 5});
  EXPECT_EQ(this->m_clicks.size(), 0);
  this->send(*this->catcher(), QEvent::MouseButtonRelease, {5, 5});
  EXPECT_EQ(this->m_clicks.size(), 1);
}

TYPED_TEST(CatchingDropDownTest, CoverGoesWithTheWindow) {
  ASSERT_NE(this->catcher(), nullptr);
  this->m_window.hide();
  EXPECT_EQ(this->catcher(), nullptr);
}

using GrabbingDropDownTest = DropDownTest<GrabbingDropDown>;

TEST_F(GrabbingDropDownTest, CoversNothing) {
  EXPECT_EQ(catcher(), nullptr);
}

using DesktopPlacedDropDownTest = DropDownTest<DesktopPlacedDropDown>;

TEST_F(DesktopPlacedDropDownTest, IsAnOrdinaryWindow) {
  EXPECT_FALSE(m_window.flags().testFlag(Qt::BypassWindowManagerHint));
  EXPECT_EQ(catcher(), nullptr);
}

/// On an X server.
class X11DropDownTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    m_connection = x11 != nullptr ? x11->connection() : nullptr;
    if (m_connection == nullptr) {
      GTEST_SKIP() << "windows.X11 runs this";
    }
  }

  /// How many states the desktop is told to give the window when it is shown, of those that keep it out of
  /// lists.
  int unlistingStates() {
    const X11Connection x11 = *X11Connection::forApplication();
    constexpr std::uint32_t limit = 64;
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 0, static_cast<xcb_window_t>(m_window.winId()),
                                                x11.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 0, limit),
                               nullptr),
        &std::free);
    const std::span atoms(static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
                          reply->value_len);
    return static_cast<int>(std::ranges::count(atoms, x11.atom("_NET_WM_STATE_SKIP_TASKBAR")) +
                            std::ranges::count(atoms, x11.atom("_NET_WM_STATE_SKIP_PAGER")));
  }

  QRasterWindow m_window;
  xcb_connection_t* m_connection = nullptr;
};

TEST_F(X11DropDownTest, ManagedWindowIsNotListedAmongTheWindows) {
  ManagedDropDown dropDown(m_window);
  dropDown.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
  EXPECT_EQ(unlistingStates(), 2);
}

TEST_F(X11DropDownTest, PlainX11GetsAWindowThatGrabsThePointer) {
  const auto dropDown = LinuxWindowSystem().makeDropDown(m_window);
  EXPECT_NE(dynamic_cast<GrabbingDropDown*>(dropDown.get()), nullptr);
  EXPECT_EQ(LinuxWindowSystem().findPointer(), nullptr);
  dropDown->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
  // A pointer that another client holds cannot be grabbed.
  const auto grabOfAnotherClient = [] {
    xcb_connection_t* const other = xcb_connect(nullptr, nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(other)).data->root;
    const std::unique_ptr<xcb_grab_pointer_reply_t, decltype(&std::free)> reply(
        xcb_grab_pointer_reply(other,
                               xcb_grab_pointer(other, 0, root, 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                                XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
                               nullptr),
        &std::free);
    const int status = reply->status;
    xcb_disconnect(other);
    return status;
  };
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return grabOfAnotherClient() == XCB_GRAB_STATUS_ALREADY_GRABBED; }, 2000));
  m_window.hide();
  EXPECT_TRUE(QTest::qWaitFor([&] { return grabOfAnotherClient() == XCB_GRAB_STATUS_SUCCESS; }, 2000));
}

}  // namespace
}  // namespace mireval
