#include "platform/linux/windows/XwaylandPointerFinder.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>

namespace mireval {
namespace {

constexpr QPoint iconPlace{500, 12};

TEST(XwaylandPointerFinderTest, TellsWhereThePointerIsOnceThatIsKnown) {
  // Where the pointer was long ago.
  QCursor::setPos(iconPlace);
  const XwaylandPointerFinder finder;
  QSignalSpy found(&finder, &PointerFinder::found);
  QTest::qWait(100);
  EXPECT_EQ(found.size(), 0);
  QCursor::setPos(iconPlace);
  ASSERT_TRUE(found.wait(1000));
  EXPECT_EQ(found.first().first().toPoint(), iconPlace);
  QCursor::setPos(QPoint(20, 300));
  QTest::qWait(100);
  EXPECT_EQ(found.size(), 1);
}

TEST(XwaylandPointerFinderTest, CoversAllScreensWhileItLives) {
  const auto coveringWindows = [] {
    return std::ranges::count_if(QGuiApplication::topLevelWindows(), [](const QWindow* window) {
      return window->isVisible() && window->mask().isEmpty() &&
             window->geometry() == QGuiApplication::primaryScreen()->virtualGeometry();
    });
  };
  {
    const XwaylandPointerFinder finder;
    EXPECT_EQ(coveringWindows(), 1);
  }
  EXPECT_EQ(coveringWindows(), 0);
}

TEST(XwaylandPointerFinderTest, ASmallWindowComesAndGoesMeanwhile) {
  const auto smallWindowIsShown = [] {
    return std::ranges::any_of(QGuiApplication::topLevelWindows(), [](const QWindow* window) {
      return window->isVisible() && window->size() == QSize(1, 1);
    });
  };
  const XwaylandPointerFinder finder;
  EXPECT_TRUE(QTest::qWaitFor(smallWindowIsShown, 2000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !smallWindowIsShown(); }, 2000));
}

}  // namespace
}  // namespace mireval
