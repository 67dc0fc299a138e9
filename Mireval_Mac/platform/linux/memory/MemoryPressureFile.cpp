#include "platform/linux/memory/MemoryPressureFile.h"

#include "platform/linux/posix/UnixSocketAddress.h"

#include <QByteArray>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using Sign = MemoryPressureFile::Sign;

/// Some task waited for memory for 200 ms within 2 s. Without privileges only multiples of 2 s are allowed.
/// The kernel overwrites the last byte with a NUL, hence one of our own.
const QByteArray defaultRequest("some 200000 2000000", sizeof "some 200000 2000000");

std::optional<MemoryPressureFile> asked(MemoryPressureFile file, const QByteArray& request) {
  if (!request.isEmpty() &&
      write(file.descriptor(), request.data(), static_cast<std::size_t>(request.size())) != request.size()) {
    return std::nullopt;
  }
  return file;
}

std::optional<MemoryPressureFile> openFile(const fs::path& path, Sign sign, const QByteArray& request) {
  // Also for a pipe: as long as we could write ourselves, it does not end with the last writer.
  FileDescriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  return file.isOpen() ? asked(MemoryPressureFile(std::move(file), sign), request) : std::nullopt;
}

std::optional<MemoryPressureFile> connectTo(const fs::path& path, const QByteArray& request) {
  const auto address = unixSocketAddress(path.native());
  FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!address || !socket.isOpen() ||
      connect(socket.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0) {
    return std::nullopt;
  }
  return asked(MemoryPressureFile(std::move(socket), Sign::readable), request);
}

std::optional<MemoryPressureFile> openNamed(const QByteArray& name) {
  const fs::path path = name.toStdString();
  const auto request = QByteArray::fromBase64Encoding(qgetenv("MEMORY_PRESSURE_WRITE"),
                                                      QByteArray::AbortOnBase64DecodingErrors);
  struct stat status {};
  if (!path.is_absolute() || !request || stat(path.c_str(), &status) != 0) {
    return std::nullopt;
  }
  switch (status.st_mode & S_IFMT) {
    case S_IFREG:
      return openFile(path, Sign::exceptional, *request);
    case S_IFIFO:
      // Whatever is written comes back as if it were a sign.
      return openFile(path, Sign::readable, {});
    case S_IFSOCK:
      return connectTo(path, *request);
    default:
      // A device: /dev/null asks not to watch.
      return std::nullopt;
  }
}

std::optional<fs::path> pressureFileOfCgroup(const MemoryPressureFile::Places& places) {
  constexpr std::string_view unified = "0::/";
  std::ifstream lines(places.cgroupOfProcess);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(unified)) {
      return places.cgroups / line.substr(unified.size()) / "memory.pressure";
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<MemoryPressureFile> MemoryPressureFile::open(const Places& places) {
  if (const QByteArray named = qgetenv("MEMORY_PRESSURE_WATCH"); !named.isEmpty()) {
    return openNamed(named);
  }
  if (const auto path = pressureFileOfCgroup(places)) {
    if (auto file = openFile(*path, Sign::exceptional, defaultRequest)) {
      return file;
    }
  }
  return openFile(places.system, Sign::exceptional, defaultRequest);
}

MemoryPressureFile::Report MemoryPressureFile::takeReport() const {
  if (m_sign == Sign::exceptional) {
    // Errors are told unasked: the control group is gone.
    pollfd state{.fd = m_file.get(), .events = 0, .revents = 0};
    return poll(&state, 1, 0) > 0 ? Report::gone : Report::memoryIsShort;
  }
  // As much as a pipe holds, so that a storm of signs becomes one report.
  std::array<char, 1 << 16> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  const ssize_t count = read(m_file.get(), bytes.data(), bytes.size());
  if (count > 0) {
    return Report::memoryIsShort;
  }
  return count < 0 && (errno == EAGAIN || errno == EINTR) ? Report::nothing : Report::gone;
}

}  // namespace mireval
