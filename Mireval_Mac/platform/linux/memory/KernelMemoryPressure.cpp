#include "platform/linux/memory/KernelMemoryPressure.h"

#include <utility>

namespace mireval {

KernelMemoryPressure::KernelMemoryPressure(std::optional<MemoryPressureFile> file) : m_file(std::move(file)) {
  if (m_file) {
    m_notifier.emplace(m_file->descriptor(), m_file->sign() == MemoryPressureFile::Sign::readable
                                                 ? QSocketNotifier::Read
                                                 : QSocketNotifier::Exception);
    connect(&*m_notifier, &QSocketNotifier::activated, this, &KernelMemoryPressure::takeReport);
  }
}

void KernelMemoryPressure::takeReport() {
  switch (m_file->takeReport()) {
    case MemoryPressureFile::Report::memoryIsShort:
      Q_EMIT memoryIsShort();
      break;
    case MemoryPressureFile::Report::nothing:
      break;
    case MemoryPressureFile::Report::gone:
      // The notifier is calling right now: it stays, but watches no more.
      m_notifier->setEnabled(false);
      m_file.reset();
      break;
  }
}

}  // namespace mireval
