#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace mireval {

/// A regular file in memory, which ends with this object. Aborts if it cannot be made.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size);

  std::filesystem::path path() const;

 private:
  FileDescriptor m_file;
};

}  // namespace mireval
