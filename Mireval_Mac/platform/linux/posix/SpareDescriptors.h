#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <unistd.h>

#include <vector>

namespace mireval {

/// Whether the process may open so many more file descriptors. Found out by opening them for a moment.
inline bool canOpenDescriptors(int count) {
  std::vector<FileDescriptor> opened;
  while (count > 0) {
    opened.emplace_back(dup(STDERR_FILENO));
    if (!opened.back().isOpen()) {
      return false;
    }
    --count;
  }
  return true;
}

}  // namespace mireval
