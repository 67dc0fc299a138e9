#include "platform/qt/StandardDescriptors.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <string>

namespace mireval {
namespace {

using Clock = std::chrono::steady_clock;

enum class Kind { file, socket, pipe, terminal };

Kind kindOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) {
    return Kind::file;
  }
  if (S_ISSOCK(status.st_mode)) {
    return Kind::socket;
  }
  if (S_ISFIFO(status.st_mode)) {
    return Kind::pipe;
  }
  return isatty(descriptor) != 0 ? Kind::terminal : Kind::file;
}

bool waitForRoom(int descriptor, std::chrono::milliseconds patience) {
  pollfd state{.fd = descriptor, .events = POLLOUT, .revents = 0};
  return poll(&state, 1, static_cast<int>(patience.count())) > 0;
}

/// Writes to one descriptor, through an open file of its own if that takes another one to be non-blocking.
class Writer {
 public:
  explicit Writer(int descriptor) : m_descriptor(descriptor), m_kind(kindOf(descriptor)) {
    if (m_kind == Kind::pipe || m_kind == Kind::terminal) {
      const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
      m_own = open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    }
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() {
    if (m_own >= 0) {
      close(m_own);
    }
  }

  /// Like write(2), for a part of the text. Fails with EAGAIN where it would block.
  ssize_t write(std::string_view text) const {
    if (m_kind == Kind::socket) {
      return send(m_descriptor, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    }
    if (m_kind == Kind::file) {
      return ::write(m_descriptor, text.data(), text.size());
    }
    // A pipe takes all of this or nothing.
    const std::size_t size = std::min<std::size_t>(text.size(), PIPE_BUF);
    if (m_own >= 0) {
      return ::write(m_own, text.data(), size);
    }
    // The device of another user's terminal, for example, cannot be opened again.
    if (!waitForRoom(m_descriptor, {})) {
      errno = EAGAIN;
      return -1;
    }
    return ::write(m_descriptor, text.data(), size);
  }

 private:
  const int m_descriptor;
  const Kind m_kind;
  int m_own = -1;
};

}  // namespace

void openMissingStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) == -1) {
      // The lowest free number is that of the missing one.
      open("/dev/null", O_RDONLY);
    }
  }
}

bool writeWithoutBlocking(int descriptor, std::string_view text, std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  const Writer writer(descriptor);
  while (!text.empty()) {
    const ssize_t count = writer.write(text);
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN && Clock::now() < deadline) {
      waitForRoom(descriptor, std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace mireval
