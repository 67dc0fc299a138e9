#pragma once

#include <sys/types.h>

#include <filesystem>
#include <span>

struct wl_interface;

namespace mireval {

/// A Wayland server in a process of its own, which offers interfaces and does nothing else.
class FakeCompositor final {
 public:
  /// Listens at the path until it is destroyed.
  FakeCompositor(const std::filesystem::path& path, std::span<const wl_interface* const> offered);
  FakeCompositor(const FakeCompositor&) = delete;
  FakeCompositor& operator=(const FakeCompositor&) = delete;
  ~FakeCompositor();

 private:
  pid_t m_process = -1;
};

}  // namespace mireval
