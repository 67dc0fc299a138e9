#include "platform/linux/memory/KernelMemoryPressure.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

FileDescriptor openAndRequest(const fs::path& path) {
  // Some task waited for memory for 200 ms within 2 s. Without privileges only multiples of 2 s are allowed.
  // The kernel overwrites the last byte with a NUL, so the NUL of the literal is sent too.
  constexpr std::string_view request("some 200000 2000000", sizeof "some 200000 2000000");
  FileDescriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  return write(file.get(), request.data(), request.size()) == static_cast<ssize_t>(request.size())
             ? std::move(file)
             : FileDescriptor();
}

std::optional<fs::path> pressureFileOfCgroup(const KernelMemoryPressure::Places& places) {
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

FileDescriptor KernelMemoryPressure::open(const Places& places) {
  if (const auto path = pressureFileOfCgroup(places)) {
    if (FileDescriptor file = openAndRequest(*path); file.isOpen()) {
      return file;
    }
  }
  return openAndRequest(places.system);
}

KernelMemoryPressure::KernelMemoryPressure(FileDescriptor file) : m_file(std::move(file)) {
  if (m_file.isOpen()) {
    m_notifier.emplace(m_file.get(), QSocketNotifier::Exception);
    connect(&*m_notifier, &QSocketNotifier::activated, this, &KernelMemoryPressure::report);
  }
}

void KernelMemoryPressure::report() {
  // The notifier's own poll has cleared the event. If this poll still finds an error, the control group is
  // gone.
  pollfd state{.fd = m_file.get(), .events = 0, .revents = 0};
  if (poll(&state, 1, 0) <= 0) {
    Q_EMIT memoryIsShort();
    return;
  }
  // The notifier calls this function, so it must not be destroyed here.
  m_notifier->setEnabled(false);
  m_file = FileDescriptor();
}

}  // namespace mireval
