#include "platform/linux/memory/KernelMemoryPressure.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <string>

namespace mireval {
namespace {

using Sign = MemoryPressureFile::Sign;

/// An application with one of Qt's two event loops for Linux.
class Application {
 public:
  explicit Application(bool glib) {
    qputenv("QT_NO_GLIB", glib ? "" : "1");
    m_application.emplace(m_argumentCount, m_arguments.data());
  }
  ~Application() {
    m_application.reset();
    qunsetenv("QT_NO_GLIB");
  }
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

 private:
  std::string m_name = "test";
  std::array<char*, 2> m_arguments{m_name.data(), nullptr};
  int m_argumentCount = 1;
  std::optional<QCoreApplication> m_application;
};

/// Counts the signals of one pressure. The parameter: whether the event loop is GLib's.
class KernelMemoryPressureTest : public testing::TestWithParam<bool> {
 protected:
  void watch(int descriptor, Sign sign) {
    m_pressure.emplace(MemoryPressureFile(FileDescriptor(descriptor), sign));
    QObject::connect(&*m_pressure, &MemoryPressure::memoryIsShort, &*m_pressure, [this] {
      ++m_signals;
      m_onSignal();
    });
  }

  /// Runs the event loop, not a step longer than until the condition holds, and at most for some seconds.
  static bool waitFor(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(5000);
    while (!condition() && !deadline.hasExpired()) {
      QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
    }
    return condition();
  }

  /// Whether the event loop has anything to do but wait.
  static bool isBusy() {
    bool busy = false;
    // What is under way may end; an event loop that spins never does.
    for (int i = 0; i < 20; ++i) {
      busy = QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
    }
    return busy;
  }

  static bool isOpen(int descriptor) { return fcntl(descriptor, F_GETFD) != -1; }

  const Application m_application{GetParam()};
  int m_signals = 0;
  std::function<void()> m_onSignal = [] {};
  std::optional<KernelMemoryPressure> m_pressure;
};

TEST_P(KernelMemoryPressureTest, WithoutAFileThereIsNoSignal) {
  const KernelMemoryPressure pressure{std::nullopt};
  EXPECT_FALSE(isBusy());
}

TEST_P(KernelMemoryPressureTest, AStormOfBytesIsOneSignal) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
  watch(ends[0], Sign::readable);
  EXPECT_FALSE(isBusy());
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(write(ends[1], "!", 1), 1);
  }
  EXPECT_TRUE(waitFor([this] { return m_signals > 0; }));
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 1);

  ASSERT_EQ(write(ends[1], "!", 1), 1);
  EXPECT_TRUE(waitFor([this] { return m_signals == 2; }));
  close(ends[1]);
}

TEST_P(KernelMemoryPressureTest, AnEndedFileIsLetGo) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
  watch(ends[0], Sign::readable);
  close(ends[1]);
  EXPECT_TRUE(waitFor([&] { return !isOpen(ends[0]); }));

  // The descriptor's number may soon be somebody else's.
  std::array<int, 2> others{};
  ASSERT_EQ(pipe2(others.data(), O_NONBLOCK | O_CLOEXEC), 0);
  ASSERT_EQ(write(others[1], "!", 1), 1);
  const int reused = others[0] == ends[0] ? others[0] : dup2(others[0], ends[0]);
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
  close(others[0]);
  close(others[1]);
  close(reused);
}

// A socket's urgent byte is a POLLPRI like that of the kernel's pressure files.
TEST_P(KernelMemoryPressureTest, AnExceptionalConditionIsASignal) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), length), 0);
  ASSERT_EQ(listen(listener, 1), 0);
  ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
  const int kernel = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(connect(kernel, reinterpret_cast<const sockaddr*>(&address), length), 0);
  const int watched = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  ASSERT_GE(watched, 0);

  watch(watched, Sign::exceptional);
  m_onSignal = [watched] {
    char byte = 0;
    EXPECT_EQ(recv(watched, &byte, 1, MSG_OOB), 1);
  };
  EXPECT_FALSE(isBusy());
  ASSERT_EQ(send(kernel, "ordinary", 8, 0), 8);
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
  for (int signal = 1; signal <= 3; ++signal) {
    ASSERT_EQ(send(kernel, "!", 1, MSG_OOB), 1);
    EXPECT_TRUE(waitFor([&] { return m_signals == signal; }));
    EXPECT_FALSE(isBusy());
    EXPECT_EQ(m_signals, signal);
  }
  close(kernel);
  close(listener);
}

// As a pressure file does once its control group is gone, a pipe nobody reads shows an error for ever.
TEST_P(KernelMemoryPressureTest, AFileWithAnErrorIsLetGo) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
  watch(ends[1], Sign::exceptional);
  EXPECT_FALSE(isBusy());
  close(ends[0]);
  EXPECT_TRUE(waitFor([&] { return !isOpen(ends[1]); }));
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
}

TEST_P(KernelMemoryPressureTest, TheFileIsClosedAtTheEnd) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
  watch(ends[0], Sign::readable);
  ASSERT_EQ(write(ends[1], "!", 1), 1);
  m_pressure.reset();
  EXPECT_FALSE(isOpen(ends[0]));
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
  close(ends[1]);
}

INSTANTIATE_TEST_SUITE_P(, KernelMemoryPressureTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "GLib" : "Unix"; });

}  // namespace
}  // namespace mireval
