#pragma once

#include "platform/linux/audio/PulseServer.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <pulse/mainloop-api.h>

#include <filesystem>
#include <functional>
#include <optional>

namespace mireval {

/// Tells when a server on this machine makes its socket, which is where libpulse looks for one. The server
/// may take connections only a moment later. A server that is configured elsewhere than in the environment is
/// not seen. Everything needs the server's lock.
class PulseSocketWatcher {
 public:
  /// `made` is called on libpulse's thread. It may stop this, but not destroy it.
  PulseSocketWatcher(PulseServer& server, std::function<void()> made);
  PulseSocketWatcher(const PulseSocketWatcher&) = delete;
  PulseSocketWatcher& operator=(const PulseSocketWatcher&) = delete;
  ~PulseSocketWatcher();

  /// Starts unless started. Does nothing when there is no folder to watch; that may be tried again.
  void start();
  void stop();

  /// The path of the socket according to the environment; nothing when that names no local server.
  static std::optional<std::filesystem::path> socket();

 private:
  void readEvents();

  pa_mainloop_api& m_api;
  const std::function<void()> m_made;
  const std::optional<std::filesystem::path> m_socket;
  FileDescriptor m_inotify;
  pa_io_event* m_event = nullptr;
};

}  // namespace mireval
