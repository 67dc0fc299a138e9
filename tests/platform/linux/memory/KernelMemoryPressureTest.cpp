#include "platform/linux/memory/KernelMemoryPressure.h"

#include "support/TemporaryFolder.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>

#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <functional>
#include <string>

namespace mireval {
namespace {

namespace fs = std::filesystem;

/// Pressure files in a folder of the test's own.
class PressureFileTest : public testing::Test {
 protected:
  fs::path path(const char* name) const { return m_folder.path() / name; }

  fs::path makeEmpty(const char* name) const {
    fs::path file = m_folder.makeFile(name);
    fs::resize_file(file, 0);
    return file;
  }

  void nameCgroup(const std::string& lines) const { std::ofstream(path("cgroup")) << lines; }

  FileDescriptor open() const {
    return KernelMemoryPressure::open(
        {.cgroupOfProcess = path("cgroup"), .cgroups = path("cgroups"), .system = path("system")});
  }

  /// Whether the file received the request to report.
  static bool isAsked(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(stream), {}} ==
           std::string("some 200000 2000000", sizeof "some 200000 2000000");
  }

  const TemporaryFolder m_folder;
};

TEST_F(PressureFileTest, WithoutAnyFileThereIsNone) {
  EXPECT_FALSE(open().isOpen());
  nameCgroup("0::/gone\n");
  EXPECT_FALSE(open().isOpen());
}

TEST_F(PressureFileTest, TheProcessesOwnControlGroupIsAskedFirst) {
  const fs::path own = makeEmpty("cgroups/user.slice/app.scope/memory.pressure");
  const fs::path root = makeEmpty("cgroups/memory.pressure");
  const fs::path system = makeEmpty("system");
  nameCgroup("4:memory:/elsewhere\n0::/user.slice/app.scope\n");
  const FileDescriptor file = open();
  EXPECT_TRUE(isAsked(own));
  EXPECT_EQ(fcntl(file.get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
  EXPECT_EQ(fcntl(file.get(), F_GETFL) & O_NONBLOCK, O_NONBLOCK);
  EXPECT_TRUE(fs::is_empty(root));
  EXPECT_TRUE(fs::is_empty(system));
  nameCgroup("0::/\n");
  EXPECT_TRUE(open().isOpen());
  EXPECT_TRUE(isAsked(root));
}

TEST_F(PressureFileTest, TheSystemsFileReplacesAMissingOneOfTheControlGroup) {
  const fs::path system = makeEmpty("system");
  for (const char* const lines : {"", "4:memory:/only/old/groups\n", "0::/gone\n"}) {
    nameCgroup(lines);
    fs::resize_file(system, 0);
    EXPECT_TRUE(open().isOpen()) << lines;
    EXPECT_TRUE(isAsked(system)) << lines;
  }
}

// /dev/full refuses the request, as the kernel's files do when they forbid it.
TEST_F(PressureFileTest, ARefusedRequestCountsAsNoFile) {
  fs::create_symlink("/dev/full", path("system"));
  EXPECT_FALSE(open().isOpen());

  fs::create_directories(path("cgroups/app"));
  fs::create_symlink("/dev/full", path("cgroups/app/memory.pressure"));
  nameCgroup("0::/app\n");
  fs::remove(path("system"));
  const fs::path system = makeEmpty("system");
  EXPECT_TRUE(open().isOpen());
  EXPECT_TRUE(isAsked(system));
}

// Against this machine's kernel, where it has such files and lets us ask.
TEST_F(PressureFileTest, TheKernelAcceptsTheRequest) {
  const FileDescriptor file = KernelMemoryPressure::open({});
  if (!file.isOpen()) {
    GTEST_SKIP() << "the kernel has no pressure files, or not for this user";
  }
  pollfd state{.fd = file.get(), .events = POLLPRI, .revents = 0};
  ASSERT_GE(poll(&state, 1, 0), 0);
  // Before a request was accepted the kernel answers with an error at once.
  EXPECT_EQ(state.revents & POLLERR, 0);
}

/// Counts the signals of one pressure. The parameter: whether the event loop is GLib's.
class KernelMemoryPressureTest : public testing::TestWithParam<bool> {
 protected:
  void watch(int descriptor) {
    m_pressure.emplace(FileDescriptor(descriptor));
    QObject::connect(&*m_pressure, &MemoryPressure::memoryIsShort, &*m_pressure, [this] {
      ++m_signals;
      m_onSignal();
    });
  }

  /// Runs the event loop until the condition holds, at most for some seconds.
  static bool waitFor(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(5000);
    while (!condition() && !deadline.hasExpired()) {
      QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
    }
    return condition();
  }

  /// Whether the event loop keeps doing something.
  static bool isBusy() {
    bool busy = false;
    // Pending work ends within some turns; an event loop that spins never rests.
    for (int i = 0; i < 20; ++i) {
      busy = QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
    }
    return busy;
  }

  static std::array<int, 2> makePipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
    return ends;
  }

  static bool isOpen(int descriptor) { return fcntl(descriptor, F_GETFD) != -1; }

  // Qt reads the variable when the application makes its event loop.
  const bool m_chosen = qputenv("QT_NO_GLIB", GetParam() ? "" : "1");
  TestApplication m_application;
  int m_signals = 0;
  std::function<void()> m_onSignal = [] {};
  std::optional<KernelMemoryPressure> m_pressure;
};

TEST_P(KernelMemoryPressureTest, WithoutAFileThereIsNoSignal) {
  watch(-1);
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
}

// An urgent byte on a socket shows POLLPRI, as the kernel's pressure files do.
TEST_P(KernelMemoryPressureTest, AnExceptionalConditionIsASignal) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  // Listens at a free port.
  ASSERT_EQ(listen(listener, 1), 0);
  sockaddr_in address{};
  socklen_t length = sizeof address;
  ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
  const int kernel = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(connect(kernel, reinterpret_cast<const sockaddr*>(&address), length), 0);
  const int watched = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  ASSERT_GE(watched, 0);

  watch(watched);
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

// Like a pressure file whose control group is gone, a pipe that nobody reads shows an error for ever.
TEST_P(KernelMemoryPressureTest, AFileWithAnErrorIsClosed) {
  const std::array<int, 2> ends = makePipe();
  watch(ends[1]);
  EXPECT_FALSE(isBusy());
  close(ends[0]);
  EXPECT_TRUE(waitFor([&] { return !isOpen(ends[1]); }));

  // Another file that takes the descriptor's number is not watched.
  const std::array<int, 2> others = makePipe();
  ASSERT_EQ(others[1], ends[1]);
  close(others[0]);
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
  EXPECT_TRUE(isOpen(others[1]));
  close(others[1]);
}

TEST_P(KernelMemoryPressureTest, TheFileIsClosedAtTheEnd) {
  const std::array<int, 2> ends = makePipe();
  watch(ends[1]);
  close(ends[0]);
  m_pressure.reset();
  EXPECT_FALSE(isOpen(ends[1]));
  EXPECT_FALSE(isBusy());
  EXPECT_EQ(m_signals, 0);
}

INSTANTIATE_TEST_SUITE_P(, KernelMemoryPressureTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "GLib" : "Unix"; });

}  // namespace
}  // namespace mireval
