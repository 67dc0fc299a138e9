#pragma once

#include "platform/MemoryPressure.h"
#include "platform/linux/memory/MemoryPressureFile.h"

#include <QSocketNotifier>

#include <optional>

namespace mireval {

/// Tells what a memory pressure file tells, woken by the kernel; never tells anything without one, or once
/// the file is gone.
class KernelMemoryPressure final : public MemoryPressure {
  Q_OBJECT

 public:
  explicit KernelMemoryPressure(std::optional<MemoryPressureFile> file = MemoryPressureFile::open());

 private:
  void takeReport();

  std::optional<MemoryPressureFile> m_file;
  /// Goes before the file that it watches.
  std::optional<QSocketNotifier> m_notifier;
};

}  // namespace mireval
