#include "platform/qt/QtRunLoop.h"

#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace mireval {
namespace {

using namespace std::chrono_literals;

class QtRunLoopTest : public testing::Test {
 protected:
  static constexpr std::chrono::milliseconds patience = 5s;

  /// Runs the event loop until the condition holds, or time is up.
  static bool runUntil(const std::function<bool()>& condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition() && !elapsed.hasExpired(patience.count())) {
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return condition();
  }

  static void runFor(std::chrono::milliseconds duration) {
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
  }

  TestApplication m_application;
  QtRunLoop m_runLoop;
};

TEST_F(QtRunLoopTest, FirstFiresAfterOneIntervalAndThenAgainAndAgain) {
  int fired = 0;
  QElapsedTimer elapsed;
  elapsed.start();
  m_runLoop.scheduleRepeatingTimer(200ms, [&fired] { ++fired; }).reset();
  ASSERT_TRUE(runUntil([&fired] { return fired >= 1; }));
  // A coarse timer may come 5 % early.
  EXPECT_GE(elapsed.elapsed(), 185);
  EXPECT_TRUE(runUntil([&fired] { return fired >= 3; }));
}

TEST_F(QtRunLoopTest, InvalidateStopsItForGood) {
  int stopped = 0;
  int other = 0;
  const auto timer = m_runLoop.scheduleRepeatingTimer(5ms, [&stopped] { ++stopped; });
  m_runLoop.scheduleRepeatingTimer(5ms, [&other] { ++other; });
  ASSERT_TRUE(runUntil([&stopped] { return stopped >= 1; }));
  timer->invalidate();
  timer->invalidate();
  const int firedBefore = stopped;
  const int otherBefore = other;
  ASSERT_TRUE(runUntil([&other, otherBefore] { return other >= otherBefore + 5; }));
  EXPECT_EQ(stopped, firedBefore);
}

TEST_F(QtRunLoopTest, TheBlockMayInvalidateItsOwnTimer) {
  int fired = 0;
  std::shared_ptr<RepeatingTimer> timer;
  timer = m_runLoop.scheduleRepeatingTimer(5ms, [&fired, &timer] {
    ++fired;
    timer->invalidate();
  });
  ASSERT_TRUE(runUntil([&fired] { return fired >= 1; }));
  runFor(50ms);
  EXPECT_EQ(fired, 1);
}

// Scheduling releases invalidated timers, here the one whose block is running.
TEST_F(QtRunLoopTest, TheBlockMayReplaceItsOwnTimer) {
  int first = 0;
  int second = 0;
  std::shared_ptr<RepeatingTimer> timer;
  timer = m_runLoop.scheduleRepeatingTimer(5ms, [this, &first, &second, &timer] {
    timer->invalidate();
    timer.reset();
    timer = m_runLoop.scheduleRepeatingTimer(5ms, [&second] { ++second; });
    // Reads the captures once more, after the timer has gone.
    ++first;
  });
  EXPECT_TRUE(runUntil([&second] { return second >= 2; }));
  EXPECT_EQ(first, 1);
}

TEST_F(QtRunLoopTest, AnInvalidatedBlockIsReleasedByTheNextTimer) {
  const auto held = std::make_shared<int>(0);
  m_runLoop.scheduleRepeatingTimer(1h, [held] { ++*held; })->invalidate();
  m_runLoop.scheduleRepeatingTimer(1h, [] {});
  EXPECT_EQ(held.use_count(), 1);
}

TEST_F(QtRunLoopTest, ARunningTimerSurvivesTheNextOne) {
  int fired = 0;
  m_runLoop.scheduleRepeatingTimer(5ms, [&fired] { ++fired; });
  m_runLoop.scheduleRepeatingTimer(1h, [] {});
  EXPECT_TRUE(runUntil([&fired] { return fired >= 2; }));
}

TEST_F(QtRunLoopTest, FiresInsideANestedEventLoop) {
  int fired = 0;
  m_runLoop.scheduleRepeatingTimer(5ms, [&fired] { ++fired; });
  QTimer::singleShot(0, [&fired] {
    // An open menu runs such a loop.
    const int before = fired;
    runFor(100ms);
    EXPECT_GT(fired, before);
    QCoreApplication::quit();
  });
  QCoreApplication::exec();
}

}  // namespace
}  // namespace mireval
