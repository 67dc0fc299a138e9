#include "platform/qt/StandardOutput.h"

#include <QByteArray>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>

#include <pthread.h>

namespace mireval {
namespace {

/// A reader that has gone must not end the process: holds back the signal that writing to it causes on this
/// thread, and takes it away afterwards.
class BrokenPipeGuard {
 public:
  BrokenPipeGuard() {
    sigemptyset(&m_brokenPipe);
    sigaddset(&m_brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &m_brokenPipe, &m_maskBefore);
    sigset_t pending;
    sigpending(&pending);
    m_wasPending = sigismember(&pending, SIGPIPE) == 1;
  }

  ~BrokenPipeGuard() {
    constexpr timespec noWait{};
    while (!m_wasPending && sigtimedwait(&m_brokenPipe, nullptr, &noWait) == -1 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &m_maskBefore, nullptr);
  }

  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

 private:
  sigset_t m_brokenPipe{};
  sigset_t m_maskBefore{};
  bool m_wasPending = false;
};

}  // namespace

void StandardOutput::writeLine(QStringView line) {
  const QByteArray bytes = line.toUtf8() + '\n';
  const BrokenPipeGuard guard;
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
  std::fflush(stdout);
}

}  // namespace mireval
