#include "MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace mireval {

MemoryFile::MemoryFile(const std::uint8_t* data, std::size_t size)
    : m_file(memfd_create("fuzz-input", MFD_CLOEXEC)) {
  if (!m_file.isOpen() || write(m_file.get(), data, size) != static_cast<ssize_t>(size)) {
    std::abort();
  }
}

std::filesystem::path MemoryFile::path() const {
  return "/proc/self/fd/" + std::to_string(m_file.get());
}

}  // namespace mireval
