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

// A copy that has just started holds the lock a moment before its socket exists; one that ends is similar.
constexpr auto retryInterval = 5ms;

tl::unexpected<std::string> lastError() {
  return tl::unexpected(std::generic_category().message(errno));
}

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

SingleInstance SingleInstance::forCurrentUser() {
  const char* const runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  if (runtimeFolder != nullptr && *runtimeFolder != '\0') {
    return SingleInstance(std::filesystem::path(runtimeFolder) / "mireval");
  }
  std::error_code error;
  const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
  SingleInstance instance((error ? "/tmp" : temporary) / ("mireval-" + std::to_string(geteuid())));
  instance.m_usesTemporaryFolder = true;
  return instance;
}

tl::expected<SingleInstance::Outcome, std::string> SingleInstance::elect(Request request,
                                                                         std::chrono::milliseconds patience) {
  return prepareFolder()
      .and_then([this] { return openLock(); })
      .and_then([&] { return contend(request, patience); })
      .map_error([this](const std::string& reason) {
        m_socket = FileDescriptor();
        m_lock = FileDescriptor();
        return m_folder.native() + ": " + reason;
      });
}

tl::expected<SingleInstance::Outcome, std::string> SingleInstance::contend(
    Request request, std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (true) {
    if (flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0) {
      return listen().map([] { return Outcome::elected; });
    }
    if (errno != EWOULDBLOCK && errno != EINTR) {
      return lastError();
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

SingleInstance::Status SingleInstance::prepareFolder() const {
  if (!m_folder.is_absolute()) {
    return tl::unexpected<std::string>("not an absolute path");
  }
  if (!unixSocketAddress(socketIn(m_folder).native())) {
    return tl::unexpected<std::string>("the path is too long for a socket");
  }
  struct stat status {};
  if ((mkdir(m_folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) || lstat(m_folder.c_str(), &status) != 0) {
    return lastError();
  }
  const bool isPrivate = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid() || !isPrivate) {
    return tl::unexpected<std::string>("not a folder of this user alone");
  }
  return {};
}

SingleInstance::Status SingleInstance::openLock() {
  // The file is never removed: another copy may have just opened it.
  m_lock = FileDescriptor(::open((m_folder / "lock").c_str(),
                                 O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
  return m_lock.isOpen() ? Status() : lastError();
}

SingleInstance::Status SingleInstance::listen() {
  const auto path = socketIn(m_folder);
  const auto address = unixSocketAddress(path.native());
  // An earlier copy may have left its socket behind.
  unlink(path.c_str());
  m_socket = makeSocket();
  if (!m_socket.isOpen() ||
      bind(m_socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
      ::listen(m_socket.get(), SOMAXCONN) != 0) {
    return lastError();
  }
  return {};
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

}  // namespace mireval
