#include "platform/qt/QtMainThread.h"

#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <atomic>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace mireval {
namespace {

class QtMainThreadTest : public testing::Test {
 protected:
  static void runPending() { QCoreApplication::sendPostedEvents(); }

  const TestApplication m_application;
};

TEST_F(QtMainThreadTest, RunsLaterAndInOrder) {
  QtMainThread mainThread;
  std::vector<int> order;
  mainThread.async([&order] { order.push_back(1); });
  mainThread.async([&order] { order.push_back(2); });
  mainThread.async([&order] { order.push_back(3); });
  EXPECT_TRUE(order.empty());
  runPending();
  EXPECT_EQ(order, (std::vector{1, 2, 3}));
  runPending();
  EXPECT_EQ(order.size(), 3U);
}

TEST_F(QtMainThreadTest, ATaskAddedByATaskRunsAfterIt) {
  QtMainThread mainThread;
  std::vector<int> order;
  mainThread.async([&] {
    mainThread.async([&order] { order.push_back(2); });
    order.push_back(1);
  });
  runPending();
  runPending();
  EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(QtMainThreadTest, TasksFromAnotherThreadRunOnThisOne) {
  QtMainThread mainThread;
  constexpr int tasks = 100;
  std::vector<int> order;
  std::vector<std::thread::id> threads;
  std::thread elsewhere([&] {
    for (int i = 0; i < tasks; ++i) {
      mainThread.async([&order, &threads, i] {
        order.push_back(i);
        threads.push_back(std::this_thread::get_id());
      });
    }
    mainThread.async([] { QCoreApplication::quit(); });
  });
  QCoreApplication::exec();
  elsewhere.join();
  ASSERT_EQ(order.size(), static_cast<std::size_t>(tasks));
  for (int i = 0; i < tasks; ++i) {
    EXPECT_EQ(order.at(static_cast<std::size_t>(i)), i);
    EXPECT_EQ(threads.at(static_cast<std::size_t>(i)), std::this_thread::get_id());
  }
}

// A task may hold the last reference to an object that belongs to the UI thread.
TEST_F(QtMainThreadTest, TasksFromAnotherThreadAreReleasedOnThisOne) {
  QtMainThread mainThread;
  constexpr int tasks = 5000;
  std::atomic<int> releasedHere = 0;
  const auto here = std::this_thread::get_id();
  std::thread elsewhere([&] {
    for (int i = 0; i < tasks; ++i) {
      std::shared_ptr<int> held(new int(i), [&releasedHere, here](const int* value) {
        releasedHere += std::this_thread::get_id() == here ? 1 : 0;
        delete value;
      });
      mainThread.async([held = std::move(held)] { EXPECT_NE(held, nullptr); });
    }
    mainThread.async([] { QCoreApplication::quit(); });
  });
  QCoreApplication::exec();
  elsewhere.join();
  EXPECT_EQ(releasedHere, tasks);
}

TEST_F(QtMainThreadTest, ATaskIsReleasedAfterItRan) {
  QtMainThread mainThread;
  const auto held = std::make_shared<int>(0);
  mainThread.async([held] { ++*held; });
  EXPECT_EQ(held.use_count(), 2);
  runPending();
  EXPECT_EQ(*held, 1);
  EXPECT_EQ(held.use_count(), 1);
}

TEST_F(QtMainThreadTest, TasksLeftAtTheEndAreDroppedAndReleased) {
  const auto held = std::make_shared<int>(0);
  {
    QtMainThread mainThread;
    mainThread.async([held] { ++*held; });
  }
  runPending();
  EXPECT_EQ(*held, 0);
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace mireval
