#include "platform/linux/windows/InvisibleWindow.h"
#include "platform/linux/windows/LinuxDropDown.h"
#include "platform/linux/windows/LinuxWindowSystem.h"
#include "platform/linux/x11/X11Connection.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QRasterWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace mireval {
namespace {

class DropDownTest : public testing::TestWithParam<const LinuxDropDown::Kind*> {
 protected:
  DropDownTest() {
    m_window.resize(100, 200);
    move(place);
    m_dropDown.show();
  }

  void move(QPoint position) {
    m_dropDown.moveTo(*QGuiApplication::primaryScreen(), {}, position);
    m_dropDown.setShape(panel, DropDown::Outside::shadow);
  }

  static void send(QWindow& window, QEvent::Type type, QPoint where) {
    QMouseEvent event(type, where, where, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &event);
  }

  /// The visible window that covers the screens, or nullptr.
  static InvisibleWindow* catcher() {
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
      if (auto* const found = qobject_cast<InvisibleWindow*>(window);
          found != nullptr && found->isVisible()) {
        return found;
      }
    }
    return nullptr;
  }

  static constexpr QPoint place{300, 40};
  /// Without its shadow, in the window.
  static constexpr QRect panel{16, 16, 68, 168};

  QRasterWindow m_window;
  LinuxDropDown m_dropDown{m_window, *GetParam()};
  QSignalSpy m_clicks{&m_dropDown, &DropDown::clickedOutside};
};

INSTANTIATE_TEST_SUITE_P(, DropDownTest,
                         testing::Values(&LinuxDropDown::grabbing, &LinuxDropDown::managed,
                                         &LinuxDropDown::popup, &LinuxDropDown::placedByDesktop));

TEST_P(DropDownTest, FramelessWindowIsShownWhereItIsPut) {
  EXPECT_TRUE(m_window.isVisible());
  EXPECT_EQ(m_window.position(), place);
  EXPECT_TRUE(m_window.flags().testFlag(Qt::FramelessWindowHint));
}

TEST_P(DropDownTest, TellsOfAClickOutsideOnRelease) {
  send(m_window, QEvent::MouseButtonPress, {-20, 50});
  EXPECT_EQ(m_clicks.size(), 0);
  send(m_window, QEvent::MouseButtonRelease, {-20, 50});
  EXPECT_EQ(m_clicks.size(), 1);
}

TEST_P(DropDownTest, ClickOnTheShadowIsOutside) {
  int clicks = 0;
  for (const QPoint click : {QPoint(15, 50), QPoint(84, 50), QPoint(50, 15), QPoint(50, 184)}) {
    send(m_window, QEvent::MouseButtonPress, click);
    send(m_window, QEvent::MouseButtonRelease, click);
    EXPECT_EQ(m_clicks.size(), ++clicks);
  }
  for (const QPoint click : {panel.topLeft(), panel.bottomRight()}) {
    send(m_window, QEvent::MouseButtonPress, click);
    send(m_window, QEvent::MouseButtonRelease, click);
  }
  EXPECT_EQ(m_clicks.size(), clicks);
}

TEST_P(DropDownTest, DoesNotTellOfAClickInside) {
  send(m_window, QEvent::MouseButtonPress, {20, 50});
  send(m_window, QEvent::MouseButtonRelease, {20, 50});
  send(m_window, QEvent::MouseButtonRelease, {-20, 50});
  EXPECT_EQ(m_clicks.size(), 0);
}

using CatchingDropDownTest = DropDownTest;

INSTANTIATE_TEST_SUITE_P(, CatchingDropDownTest,
                         testing::Values(&LinuxDropDown::managed, &LinuxDropDown::popup));

TEST_P(CatchingDropDownTest, CoversEverythingButThePanel) {
  ASSERT_NE(catcher(), nullptr);
  EXPECT_EQ(catcher()->geometry(), m_window.screen()->virtualGeometry());
  const auto coversAllBut = [](const QRect& area) {
    const QRegion mask = catcher()->mask();
    return !mask.contains(area.center()) && !mask.contains(area.topLeft()) &&
           mask.contains(area.topLeft() - QPoint(1, 1));
  };
  EXPECT_TRUE(coversAllBut(panel.translated(place)));
  move({10, 30});
  EXPECT_EQ(m_window.position(), QPoint(10, 30));
  EXPECT_TRUE(coversAllBut(panel.translated(10, 30)));
}

TEST_P(CatchingDropDownTest, TellsOfAClickOnTheCoverOnRelease) {
  ASSERT_NE(catcher(), nullptr);
  // This one ends the click that opened the panel.
  send(*catcher(), QEvent::MouseButtonRelease, {5, 5});
  send(*catcher(), QEvent::MouseButtonPress, {5, 5});
  EXPECT_EQ(m_clicks.size(), 0);
  send(*catcher(), QEvent::MouseButtonRelease, {5, 5});
  EXPECT_EQ(m_clicks.size(), 1);
}

TEST_P(CatchingDropDownTest, CoverGoesWithTheWindow) {
  ASSERT_NE(catcher(), nullptr);
  m_window.hide();
  EXPECT_EQ(catcher(), nullptr);
}

TEST_P(CatchingDropDownTest, CoversNothingWhileItIsNotExclusive) {
  m_dropDown.setExclusive(false);
  EXPECT_EQ(catcher(), nullptr);
  EXPECT_TRUE(m_window.isVisible());
  m_dropDown.setExclusive(true);
  EXPECT_NE(catcher(), nullptr);
  m_window.hide();
  m_dropDown.setExclusive(false);
  m_dropDown.setExclusive(true);
  EXPECT_EQ(catcher(), nullptr);
}

using UncoveredDropDownTest = DropDownTest;

INSTANTIATE_TEST_SUITE_P(, UncoveredDropDownTest,
                         testing::Values(&LinuxDropDown::grabbing, &LinuxDropDown::placedByDesktop));

TEST_P(UncoveredDropDownTest, CoversNothing) {
  EXPECT_EQ(catcher(), nullptr);
  // What the desktop places is an ordinary window.
  EXPECT_EQ(m_window.flags().testFlag(Qt::BypassWindowManagerHint), GetParam() == &LinuxDropDown::grabbing);
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

  /// How many of the two states that keep a window out of lists the desktop is told to give it.
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

  /// Of the window on the server, in pixels.
  QRegion shape(xcb_shape_kind_t kind) {
    const std::unique_ptr<xcb_shape_get_rectangles_reply_t, decltype(&std::free)> reply(
        xcb_shape_get_rectangles_reply(
            m_connection,
            xcb_shape_get_rectangles(m_connection, static_cast<xcb_window_t>(m_window.winId()), kind),
            nullptr),
        &std::free);
    QRegion region;
    for (const xcb_rectangle_t& part :
         std::span(xcb_shape_get_rectangles_rectangles(reply.get()),
                   static_cast<std::size_t>(xcb_shape_get_rectangles_rectangles_length(reply.get())))) {
      region += QRect(part.x, part.y, part.width, part.height);
    }
    return region;
  }

  bool windowHasKeyboard() {
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr), &std::free);
    return reply->focus == m_window.winId();
  }

  QRasterWindow m_window;
  xcb_connection_t* m_connection = nullptr;
};

/// Has a window of its own on the X server.
class OtherClient {
 public:
  OtherClient() {
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    const std::uint32_t bypassesWindowManager = 1;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_OVERRIDE_REDIRECT,
                      &bypassesWindowManager);
    xcb_map_window(m_connection, m_window);
  }
  OtherClient(const OtherClient&) = delete;
  OtherClient& operator=(const OtherClient&) = delete;
  ~OtherClient() { xcb_disconnect(m_connection); }

  /// Has taken it when this returns.
  void takeKeyboard() {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
  }

 private:
  xcb_connection_t* m_connection = xcb_connect(nullptr, nullptr);
  const xcb_window_t m_window = xcb_generate_id(m_connection);
};

TEST_F(X11DropDownTest, ManagedWindowIsNotListedAmongTheWindows) {
  LinuxDropDown dropDown(m_window, LinuxDropDown::managed);
  dropDown.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
  EXPECT_EQ(unlistingStates(), 2);
}

TEST_F(X11DropDownTest, ShadowTakesNoClicksAndIsAnnounced) {
  m_window.resize(100, 200);
  const auto dropDown = LinuxWindowSystem().makeDropDown(m_window);
  dropDown->moveTo(*m_window.screen(), {}, {10, 30});
  // A corner is missing.
  const QRegion panel = QRegion(16, 14, 68, 160).subtracted(QRect(16, 14, 1, 1));
  dropDown->setShape(panel, DropDown::Outside::shadow);
  EXPECT_EQ(shape(XCB_SHAPE_SK_INPUT), panel);
  EXPECT_EQ(shape(XCB_SHAPE_SK_BOUNDING), QRegion(0, 0, 100, 200));
  const X11Connection x11 = *X11Connection::forApplication();
  EXPECT_EQ(x11.cardinals(static_cast<xcb_window_t>(m_window.winId()), x11.atom("_GTK_FRAME_EXTENTS")),
            (std::vector<std::uint32_t>{16, 16, 14, 26}));
}

TEST_F(X11DropDownTest, WhatCannotBeSeenThroughIsCutOff) {
  m_window.resize(100, 200);
  const auto dropDown = LinuxWindowSystem().makeDropDown(m_window);
  dropDown->moveTo(*m_window.screen(), {}, {10, 30});
  const QRegion panel = QRegion(0, 0, 100, 200).subtracted(QRect(0, 0, 3, 3));
  dropDown->setShape(panel, DropDown::Outside::hidden);
  EXPECT_EQ(shape(XCB_SHAPE_SK_BOUNDING), panel);
}

TEST_F(X11DropDownTest, TakesTheKeyboardFromWhoeverTookItLast) {
  OtherClient other;
  other.takeKeyboard();
  const auto dropDown = LinuxWindowSystem().makeDropDown(m_window);
  dropDown->show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return windowHasKeyboard(); }, 2000));
  // The event of this has the latest time that Qt knows.
  dropDown->setShape(QRect(0, 0, 10, 10), DropDown::Outside::shadow);
  QTest::qWait(50);
  dropDown->setExclusive(false);
  other.takeKeyboard();
  dropDown->setExclusive(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return windowHasKeyboard(); }, 2000));
  other.takeKeyboard();
  dropDown->activate();
  EXPECT_TRUE(QTest::qWaitFor([&] { return windowHasKeyboard(); }, 2000));
}

TEST_F(X11DropDownTest, PlainX11GetsAWindowThatGrabsThePointer) {
  const auto dropDown = LinuxWindowSystem().makeDropDown(m_window);
  EXPECT_TRUE(m_window.flags().testFlag(Qt::BypassWindowManagerHint));
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
  dropDown->setExclusive(false);
  EXPECT_TRUE(QTest::qWaitFor([&] { return grabOfAnotherClient() == XCB_GRAB_STATUS_SUCCESS; }, 2000));
  dropDown->setExclusive(true);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return grabOfAnotherClient() == XCB_GRAB_STATUS_ALREADY_GRABBED; }, 2000));
  m_window.hide();
  EXPECT_TRUE(QTest::qWaitFor([&] { return grabOfAnotherClient() == XCB_GRAB_STATUS_SUCCESS; }, 2000));
}

}  // namespace
}  // namespace mireval
