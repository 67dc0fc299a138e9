#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace mireval {

/// A file that tells when the system is short of memory. Owns its descriptor, which never blocks.
class MemoryPressureFile final {
 public:
  /// Where the kernel tells about this process and about the whole system.
  struct Places {
    std::filesystem::path cgroupOfProcess = "/proc/self/cgroup";
    std::filesystem::path cgroups = "/sys/fs/cgroup";
    std::filesystem::path system = "/proc/pressure/memory";
  };

  /// What poll(2) says of the descriptor at a shortage.
  enum class Sign {
    /// POLLIN: there are bytes to take away.
    readable,
    /// POLLPRI: asking has already cleared it.
    exceptional,
  };

  enum class Report { memoryIsShort, nothing, gone };

  /// The file that a service manager names in MEMORY_PRESSURE_WATCH (with MEMORY_PRESSURE_WRITE in base64 as
  /// what to ask for), else the kernel's pressure file of the process's control group, else that of the
  /// system. Nothing when watching is not wanted or none of these can be had: older kernels let only
  /// privileged processes watch.
  static std::optional<MemoryPressureFile> open(const Places& places);
  static std::optional<MemoryPressureFile> open() { return open(Places()); }

  MemoryPressureFile(FileDescriptor file, Sign sign) : m_file(std::move(file)), m_sign(sign) {}

  int descriptor() const { return m_file.get(); }
  Sign sign() const { return m_sign; }

  /// What the sign means, once poll(2) has shown it. After `gone` it would show for ever: close the file.
  Report takeReport() const;

 private:
  FileDescriptor m_file;
  Sign m_sign;
};

}  // namespace mireval
