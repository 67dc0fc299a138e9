#include "platform/qt/StandardDescriptors.h"

#include "platform/qt/StandardError.h"
#include "platform/qt/StandardOutput.h"

#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace mireval {
namespace {

using namespace std::chrono_literals;

constexpr int lines = 2000;

std::string lineNumber(int number) {
  return "line " + std::to_string(number) + " " + std::string(100, 'x');
}

/// Something to write to whose other end the test reads, or does not. The test ends with SIGALRM where a call
/// would wait for ever.
class StandardDescriptorsTest : public testing::Test {
 protected:
  StandardDescriptorsTest() {
    alarm(20);
    StandardError::takeQtMessages();
  }

  ~StandardDescriptorsTest() override {
    qInstallMessageHandler(nullptr);
    close(m_writer);
    close(m_reader);
    alarm(0);
  }

  /// Takes both ends.
  void use(int writer, int reader) {
    m_writer = writer;
    m_reader = reader;
    ASSERT_GE(writer, 0);
    ASSERT_GE(reader, 0);
    ASSERT_EQ(fcntl(reader, F_SETFL, O_NONBLOCK), 0);
  }

  /// Does the work while standard output and standard error are the writing end.
  template <typename Work>
  void whileReplaced(Work work) const {
    std::fflush(nullptr);
    const int output = dup(STDOUT_FILENO);
    const int error = dup(STDERR_FILENO);
    dup2(m_writer, STDOUT_FILENO);
    dup2(m_writer, STDERR_FILENO);
    work();
    std::fflush(nullptr);
    dup2(output, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    close(output);
    close(error);
  }

  void writeLine(const std::string& line) const {
    whileReplaced([&] { StandardOutput().writeLine(QString::fromStdString(line)); });
  }

  void usePipe() {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    use(ends[1], ends[0]);
  }

  void useTerminal() {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(master), 0);
    ASSERT_EQ(unlockpt(master), 0);
    const int slave = open(ptsname(master), O_RDWR | O_NOCTTY);
    termios settings{};
    ASSERT_EQ(tcgetattr(slave, &settings), 0);
    settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    ASSERT_EQ(tcsetattr(slave, TCSANOW, &settings), 0);
    use(slave, master);
  }

  void useSocket() {
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    use(ends[1], ends[0]);
  }

  /// More than any of them holds.
  void writeLines() const {
    whileReplaced([] {
      StandardOutput output;
      StandardError notices;
      for (int number = 0; number < lines; ++number) {
        output.writeLine(QString::fromStdString(lineNumber(number)));
        notices.say(lineNumber(number));
        qWarning("%s", lineNumber(number).c_str());
      }
    });
  }

  std::string received() const {
    std::string text;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = read(m_reader, buffer.data(), buffer.size())) > 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  /// After the reader has not read: it gets the first lines, and later ones again once it has read.
  void expectLossAndRecovery() {
    const std::string first = received();
    EXPECT_TRUE(
        first.starts_with(lineNumber(0) + "\nmireval: " + lineNumber(0) + "\n" + lineNumber(0) + "\n"));
    EXPECT_EQ(first.find(lineNumber(lines - 1)), std::string::npos);
    writeLine("again");
    EXPECT_TRUE(received().ends_with("again\n"));
  }

  int m_writer = -1;
  int m_reader = -1;
};

TEST_F(StandardDescriptorsTest, APipeWithoutRoomLosesLines) {
  usePipe();
  writeLines();
  expectLossAndRecovery();
}

TEST_F(StandardDescriptorsTest, ASocketWithoutRoomLosesLines) {
  useSocket();
  writeLines();
  expectLossAndRecovery();
}

TEST_F(StandardDescriptorsTest, ATerminalWithoutRoomLosesLines) {
  useTerminal();
  writeLines();
  expectLossAndRecovery();
}

TEST_F(StandardDescriptorsTest, AStoppedTerminalLosesLines) {
  useTerminal();
  ASSERT_EQ(tcflow(m_writer, TCOOFF), 0);
  writeLines();
  EXPECT_EQ(received(), "");
  ASSERT_EQ(tcflow(m_writer, TCOON), 0);
  writeLine("again");
  EXPECT_TRUE(received().ends_with("again\n"));
}

TEST_F(StandardDescriptorsTest, OtherProcessesKeepTheirFlags) {
  usePipe();
  const int flags = fcntl(m_writer, F_GETFL);
  writeLines();
  EXPECT_EQ(fcntl(m_writer, F_GETFL), flags);
  EXPECT_EQ(flags & O_NONBLOCK, 0);
}

TEST_F(StandardDescriptorsTest, NoFurtherDescriptorIsNeeded) {
  usePipe();
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none{.rlim_cur = 1, .rlim_max = before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  int taken = 0;
  while (taken < lines && writeWithoutBlocking(m_writer, lineNumber(taken))) {
    ++taken;
  }
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_GT(taken, 0);
  EXPECT_LT(taken, lines);
}

TEST_F(StandardDescriptorsTest, NoLineIsTornByAnotherWriter) {
  usePipe();
  // Room for a part of a line.
  const std::string filler(fcntl(m_writer, F_GETPIPE_SZ) - 50, 'f');
  ASSERT_EQ(write(m_writer, filler.data(), filler.size()), static_cast<ssize_t>(filler.size()));
  writeLine(lineNumber(0));
  EXPECT_EQ(received(), filler);
}

TEST_F(StandardDescriptorsTest, LongTextsArriveWhole) {
  usePipe();
  const std::string text(30'000, 'x');
  EXPECT_TRUE(writeWithoutBlocking(m_writer, text));
  EXPECT_EQ(received(), text);
}

TEST_F(StandardDescriptorsTest, APatientWriterWaitsForRoom) {
  usePipe();
  const std::string text(1'000'000, 'x');
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(writeWithoutBlocking(m_writer, text));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
  EXPECT_FALSE(writeWithoutBlocking(m_writer, text, 100ms));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
  received();
  const pid_t reader = fork();
  if (reader == 0) {
    std::size_t count = 0;
    while (count < text.size()) {
      count += received().size();
    }
    _exit(0);
  }
  EXPECT_TRUE(writeWithoutBlocking(m_writer, text, 10s));
  waitpid(reader, nullptr, 0);
}

TEST_F(StandardDescriptorsTest, AFileGetsEverythingWhereItIs) {
  std::FILE* const file = std::tmpfile();
  std::fputs("before\n", file);
  std::fflush(file);
  m_writer = dup(fileno(file));
  writeLine("one");
  writeLine("two");
  std::rewind(file);
  std::array<char, 64> buffer{};
  const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), file);
  EXPECT_EQ(std::string(buffer.data(), size), "before\none\ntwo\n");
  std::fclose(file);
}

TEST_F(StandardDescriptorsTest, WhatCannotBeWrittenIsReported) {
  for (const char* const path : {"/dev/full", "/dev/null"}) {
    const int descriptor = open(path, O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(writeWithoutBlocking(descriptor, "text"), std::string(path) == "/dev/null");
    close(descriptor);
    EXPECT_FALSE(writeWithoutBlocking(descriptor, "text"));
  }
}

/// In a process of its own: the exit status is 0 if each descriptor is what the list says.
int statusWithout(std::initializer_list<int> missing) {
  struct stat before[3]{};
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    fstat(descriptor, &before[descriptor]);
  }
  for (const int descriptor : missing) {
    close(descriptor);
  }
  openMissingStandardDescriptors();
  struct stat null {};
  stat("/dev/null", &null);
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    struct stat now {};
    if (fstat(descriptor, &now) != 0) {
      return 1;
    }
    const bool isMissing = std::find(missing.begin(), missing.end(), descriptor) != missing.end();
    if (now.st_rdev != (isMissing ? null.st_rdev : before[descriptor].st_rdev)) {
      return 2;
    }
    // As before: what is written there is reported as lost.
    if (isMissing && (write(descriptor, "x", 1) != -1 || errno != EBADF)) {
      return 3;
    }
  }
  // What is opened next is none of them.
  return open("/dev/null", O_RDONLY | O_CLOEXEC) >= 3 ? 0 : 4;
}

TEST(MissingDescriptors, AreOpened) {
  EXPECT_EXIT(_exit(statusWithout({})), testing::ExitedWithCode(0), "");
  EXPECT_EXIT(_exit(statusWithout({1})), testing::ExitedWithCode(0), "");
  EXPECT_EXIT(_exit(statusWithout({0})), testing::ExitedWithCode(0), "");
  EXPECT_EXIT(_exit(statusWithout({0, 1})), testing::ExitedWithCode(0), "");
  // EXPECT_EXIT itself needs standard error.
  EXPECT_EXIT(
      {
        const int saved = dup(2);
        const int status = statusWithout({0, 1, 2});
        dup2(saved, 2);
        _exit(status);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace mireval
