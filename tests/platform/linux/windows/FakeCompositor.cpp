#include "FakeCompositor.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wayland-server-core.h>

#include <csignal>
#include <stdexcept>

namespace mireval {
namespace {

void bindNothing(wl_client*, void*, std::uint32_t, std::uint32_t) {}

[[noreturn]] void serve(int listener, std::span<const wl_interface* const> offered) {
  wl_display* const display = wl_display_create();
  wl_display_add_socket_fd(display, listener);
  for (const wl_interface* const interface : offered) {
    wl_global_create(display, interface, 1, nullptr, &bindNothing);
  }
  wl_display_run(display);
  _exit(0);
}

}  // namespace

FakeCompositor::FakeCompositor(const std::filesystem::path& path,
                               std::span<const wl_interface* const> offered) {
  const FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const auto address = unixSocketAddress(path.native());
  if (!address || bind(listener.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
      listen(listener.get(), 8) != 0) {
    throw std::runtime_error("cannot listen");
  }
  m_process = fork();
  if (m_process == 0) {
    serve(listener.get(), offered);
  }
}

FakeCompositor::~FakeCompositor() {
  kill(m_process, SIGKILL);
  waitpid(m_process, nullptr, 0);
}

}  // namespace mireval
