#include "platform/linux/audio/PulseSocketWatcher.h"

#include <QByteArray>
#include <QList>

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

/// The path in one address of PULSE_SERVER, such as "unix:/path" or "{machine}unix:/path".
std::optional<fs::path> pathIn(std::string_view address) {
  constexpr std::string_view scheme = "unix:";
  if (address.starts_with('{')) {
    address.remove_prefix(std::min(address.find('}'), address.size() - 1) + 1);
  }
  if (address.starts_with(scheme)) {
    address.remove_prefix(scheme.size());
  }
  return address.starts_with('/') ? std::optional<fs::path>(address) : std::nullopt;
}

}  // namespace

std::optional<fs::path> PulseSocketWatcher::socket() {
  if (const QByteArray addresses = qgetenv("PULSE_SERVER").simplified(); !addresses.isEmpty()) {
    for (const QByteArray& address : addresses.split(' ')) {
      if (auto path = pathIn({address.constData(), static_cast<std::size_t>(address.size())})) {
        return path;
      }
    }
    return std::nullopt;
  }
  if (const QByteArray folder = qgetenv("PULSE_RUNTIME_PATH"); !folder.isEmpty()) {
    return fs::path(folder.toStdString()) / "native";
  }
  const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
  return folder.isEmpty() ? std::nullopt : std::optional(fs::path(folder.toStdString()) / "pulse" / "native");
}

PulseSocketWatcher::PulseSocketWatcher(PulseServer& server, std::function<void()> made)
    : m_api(server.loop()), m_made(std::move(made)), m_socket(socket()) {}

PulseSocketWatcher::~PulseSocketWatcher() {
  stop();
}

void PulseSocketWatcher::start() {
  if (m_event != nullptr || !m_socket) {
    return;
  }
  FileDescriptor inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  if (!inotify.isOpen() || inotify_add_watch(inotify.get(), m_socket->parent_path().c_str(),
                                             IN_CREATE | IN_MOVED_TO | IN_ONLYDIR) < 0) {
    return;
  }
  m_inotify = std::move(inotify);
  m_event = m_api.io_new(
      &m_api, m_inotify.get(), PA_IO_EVENT_INPUT,
      [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* self) {
        static_cast<PulseSocketWatcher*>(self)->readEvents();
      },
      this);
}

void PulseSocketWatcher::stop() {
  if (m_event != nullptr) {
    m_api.io_free(std::exchange(m_event, nullptr));
  }
  m_inotify = FileDescriptor();
}

void PulseSocketWatcher::readEvents() {
  alignas(inotify_event) std::array<char, 4096> buffer{};
  const ssize_t size = read(m_inotify.get(), buffer.data(), buffer.size());
  bool isMade = false;
  bool folderIsGone = size < 0;
  for (ssize_t at = 0; at < size;) {
    const auto* const event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
    folderIsGone = folderIsGone || (event->mask & IN_IGNORED) != 0;
    isMade = isMade || (event->len > 0 && m_socket->filename() == std::string_view(event->name));
    at += static_cast<ssize_t>(sizeof *event + event->len);
  }
  if (folderIsGone) {
    stop();
  }
  if (isMade) {
    m_made();
  }
}

}  // namespace mireval
