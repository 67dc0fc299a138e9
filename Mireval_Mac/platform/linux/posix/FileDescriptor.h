#pragma once

#include <unistd.h>

#include <utility>

namespace mireval {

/// Owns a file descriptor, or none.
class FileDescriptor final {
 public:
  /// Takes ownership of the result of a system call; -1 means none.
  explicit FileDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
  }
  ~FileDescriptor() {
    if (isOpen()) {
      close(m_descriptor);
    }
  }

  bool isOpen() const { return m_descriptor >= 0; }
  int get() const { return m_descriptor; }

 private:
  int m_descriptor;
};

}  // namespace mireval
