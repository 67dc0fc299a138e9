#include "platform/linux/instance/SingleInstance.h"

#include "platform/linux/posix/UnixSocketAddress.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <thread>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// For the moment between the lock and the socket of a copy that has just started, or the end of one.
constexpr auto retryInterval = 5ms;

std::filesystem::path socketIn(const std::filesystem::path& folder) {
  return folder / "socket";
}

FileDescriptor makeSocket() {
  return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool becomesReadable(const FileDescriptor& descriptor, Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  pollfd state{.fd = descriptor.get(), .events = POLLIN, .revents = 0};
  return ::poll(&state, 1, static_cast<int>(std::max(left, 0ms).count())) > 0;
}

}  // namespace

SingleInstance::SingleInstance(std::filesystem::path folder) : m_folder(std::move(folder)) {}

SingleInstance SingleInstance::ofUser() {
  const char* const runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  if (runtimeFolder == nullptr || *runtimeFolder == '\0') {
    return SingleInstance({});
  }
  return SingleInstance(std::filesystem::path(runtimeFolder) / "mireval");
}

SingleInstance::Outcome SingleInstance::elect(Request request, std::chrono::milliseconds patience) {
  if (m_folder.empty() || !prepareFolder() || !openLock()) {
    return Outcome::independent;
  }
  const auto deadline = Clock::now() + patience;
  while (true) {
    if (flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0) {
      return listen() ? Outcome::elected : Outcome::independent;
    }
    if (errno != EWOULDBLOCK && errno != EINTR) {
      failWithErrno();
      return Outcome::independent;
    }
    if (handOver(request, deadline)) {
      return Outcome::handedOver;
    }
    if (Clock::now() >= deadline) {
      return Outcome::unanswered;
    }
    std::this_thread::sleep_for(retryInterval);
  }
}

bool SingleInstance::prepareFolder() {
  if (!m_folder.is_absolute()) {
    return fail("not an absolute path");
  }
  if (!unixSocketAddress(socketIn(m_folder).native())) {
    return fail("the path is too long for a socket");
  }
  if (mkdir(m_folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
    return failWithErrno();
  }
  struct stat status {};
  if (lstat(m_folder.c_str(), &status) != 0) {
    return failWithErrno();
  }
  const bool isPrivate = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return (S_ISDIR(status.st_mode) && status.st_uid == geteuid() && isPrivate) ||
         fail("not a folder of this user alone");
}

bool SingleInstance::openLock() {
  // The file is never removed: a copy might just have opened it.
  m_lock = FileDescriptor(::open((m_folder / "lock").c_str(),
                                 O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
  return m_lock.isOpen() || failWithErrno();
}

bool SingleInstance::listen() {
  const auto path = socketIn(m_folder);
  const auto address = unixSocketAddress(path.native());
  // One that an earlier copy has left behind.
  unlink(path.c_str());
  m_socket = makeSocket();
  if (!m_socket.isOpen() ||
      bind(m_socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
      ::listen(m_socket.get(), SOMAXCONN) != 0) {
    return failWithErrno();
  }
  return true;
}

bool SingleInstance::handOver(Request request, Clock::time_point deadline) const {
  const auto address = unixSocketAddress(socketIn(m_folder).native());
  const FileDescriptor connection = makeSocket();
  const auto message = static_cast<char>(request);
  if (connect(connection.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
      send(connection.get(), &message, sizeof message, MSG_NOSIGNAL) < 0 ||
      !becomesReadable(connection, deadline)) {
    return false;
  }
  char answer = 0;
  return recv(connection.get(), &answer, sizeof answer, 0) == sizeof answer;
}

bool SingleInstance::fail(const std::string& reason) {
  m_problem = m_folder.native() + ": " + reason;
  m_socket = FileDescriptor();
  m_lock = FileDescriptor();
  return false;
}

bool SingleInstance::failWithErrno() {
  return fail(std::generic_category().message(errno));
}

}  // namespace mireval
