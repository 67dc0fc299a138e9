#pragma once

#include "platform/MemoryPressure.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QSocketNotifier>

#include <filesystem>
#include <optional>

namespace mireval {

/// Watches a pressure file of the kernel, without a thread and without polling. Never signals where there is
/// no such file.
class KernelMemoryPressure final : public MemoryPressure {
  Q_OBJECT

 public:
  /// Where the kernel reports on this process and on the whole system.
  struct Places {
    std::filesystem::path cgroupOfProcess = "/proc/self/cgroup";
    std::filesystem::path cgroups = "/sys/fs/cgroup";
    std::filesystem::path system = "/proc/pressure/memory";
  };

  /// Opens the pressure file of the process's control group, else that of the system, and asks the kernel to
  /// report. The result is closed if there is neither file or if the kernel demands privileges, as older ones
  /// do.
  static FileDescriptor open(const Places& places);

  KernelMemoryPressure() : KernelMemoryPressure(open(Places())) {}

  /// `file` shows POLLPRI at a shortage, as the kernel's pressure files do, and does not block.
  explicit KernelMemoryPressure(FileDescriptor file);

 private:
  void report();

  FileDescriptor m_file;
  /// Destroyed before the file that it watches.
  std::optional<QSocketNotifier> m_notifier;
};

}  // namespace mireval
