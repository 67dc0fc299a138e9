// The file in which the kernel names the control group of the process.
#include "MemoryFile.h"
#include "platform/linux/memory/KernelMemoryPressure.h"

#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Without a pressure file in it, so that nothing is ever asked for.
  static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
  const mireval::MemoryFile cgroup(data, size);
  mireval::KernelMemoryPressure::open({.cgroupOfProcess = cgroup.path(),
                                       .cgroups = folder.path().toStdString(),
                                       .system = folder.filePath(QStringLiteral("none")).toStdString()});
  return 0;
}
