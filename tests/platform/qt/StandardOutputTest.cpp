#include "platform/qt/StandardOutput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace mireval {
namespace {

/// Replaces standard output by a pipe.
class StandardOutputTest : public testing::Test {
 protected:
  StandardOutputTest() {
    std::fflush(stdout);
    EXPECT_EQ(pipe(m_pipe.data()), 0);
    EXPECT_EQ(fcntl(m_pipe[0], F_SETFL, O_NONBLOCK), 0);
    dup2(m_pipe[1], STDOUT_FILENO);
    close(m_pipe[1]);
  }

  ~StandardOutputTest() override {
    dup2(m_realOutput, STDOUT_FILENO);
    close(m_realOutput);
    close(m_pipe[0]);
  }

  /// What has arrived at the other end of the pipe by now.
  std::string received() const {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(m_pipe[0], buffer.data(), buffer.size());
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
  }

  const int m_realOutput = dup(STDOUT_FILENO);
  std::array<int, 2> m_pipe{-1, -1};
  StandardOutput m_output;
};

TEST_F(StandardOutputTest, WritesEachLineAtOnceAsUtf8) {
  m_output.writeLine(u"\"Missing bundled track Rain Veil\"");
  EXPECT_EQ(received(), "\"Missing bundled track Rain Veil\"\n");
  m_output.writeLine(u"");
  EXPECT_EQ(received(), "\n");
  m_output.writeLine(u"Mireval \u2022 \u96e8 \U0001F3B5");
  EXPECT_EQ(received(), "Mireval \xE2\x80\xA2 \xE9\x9B\xA8 \xF0\x9F\x8E\xB5\n");
  m_output.writeLine(u"100 %s %n");
  EXPECT_EQ(received(), "100 %s %n\n");
}

TEST_F(StandardOutputTest, OutputThatNobodyTakesIsLost) {
  // The program does so at its start.
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  close(std::exchange(m_pipe[0], -1));
  m_output.writeLine(u"lost");
  m_output.writeLine(u"lost too");
  std::signal(SIGPIPE, before);
}

}  // namespace
}  // namespace mireval
