#include "platform/qt/QtMainThread.h"

#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
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

  TestApplication m_application;
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

// A task may hold the last reference to an object that belongs to the UI thread.
TEST_F(QtMainThreadTest, TasksFromAnotherThreadRunAndAreReleasedOnThisOne) {
  QtMainThread mainThread;
  constexpr int tasks = 5000;
  std::vector<int> order;
  int ranHere = 0;
  std::atomic<int> releasedHere = 0;
  const auto here = std::this_thread::get_id();
  std::thread elsewhere([&] {
    for (int i = 0; i < tasks; ++i) {
      std::shared_ptr<int> held(new int(i), [&releasedHere, here](const int* value) {
        releasedHere += std::this_thread::get_id() == here ? 1 : 0;
        delete value;
      });
      mainThread.async([&order, &ranHere, here, held = std::move(held)] {
        order.push_back(*held);
        ranHere += std::this_thread::get_id() == here ? 1 : 0;
      });
    }
    mainThread.async([] { QCoreApplication::quit(); });
  });
  QCoreApplication::exec();
  elsewhere.join();
  EXPECT_EQ(order.size(), static_cast<std::size_t>(tasks));
  EXPECT_TRUE(std::ranges::is_sorted(order));
  EXPECT_EQ(ranHere, tasks);
  EXPECT_EQ(releasedHere, tasks);
}

TEST_F(QtMainThreadTest, ATaskIsReleasedAfterItRanOrAtTheEnd) {
  const auto held = std::make_shared<int>(0);
  {
    QtMainThread mainThread;
    mainThread.async([held] { ++*held; });
    EXPECT_EQ(held.use_count(), 2);
    runPending();
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1);
    mainThread.async([held] { ++*held; });
  }
  runPending();
  EXPECT_EQ(*held, 1);
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace mireval
