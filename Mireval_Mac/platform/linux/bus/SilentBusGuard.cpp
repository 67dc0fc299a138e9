#include "platform/linux/bus/SilentBusGuard.h"

#include <QtDBus/QDBusConnection>
#include <QtGlobal>

#include <systemd/sd-bus.h>

#include <cerrno>
#include <chrono>
#include <cstdint>

namespace mireval {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 250ms;
constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// False only for a bus that takes a connection and then says nothing. One that cannot be reached fails at
/// once, for Qt too.
bool sessionBusAnswers() {
  sd_bus* connection = nullptr;
  // Nobody has taken the connections that wait at its socket.
  if (const int result = sd_bus_open_user(&connection); result < 0) {
    return result != -EAGAIN;
  }
  const auto limit = std::chrono::steady_clock::now() + patience;
  int progress = 0;
  while (progress >= 0 && sd_bus_is_ready(connection) == 0) {
    const std::chrono::microseconds left =
        std::chrono::duration_cast<std::chrono::microseconds>(limit - std::chrono::steady_clock::now());
    if (left.count() <= 0) {
      break;
    }
    progress = sd_bus_process(connection, nullptr);
    if (progress == 0) {
      progress = sd_bus_wait(connection, static_cast<std::uint64_t>(left.count()));
    }
  }
  const bool answers = progress < 0 || sd_bus_is_ready(connection) != 0;
  sd_bus_close_unref(connection);
  return answers;
}

}  // namespace

SilentBusGuard::SilentBusGuard()
    : m_busIsSilent(!sessionBusAnswers()),
      m_hadAddress(qEnvironmentVariableIsSet(addressVariable)),
      m_address(qgetenv(addressVariable)) {
  if (m_busIsSilent) {
    qputenv(addressVariable, "unix:path=/dev/null");
  }
}

SilentBusGuard::~SilentBusGuard() {
  if (m_busIsSilent) {
    // Fails at once. Qt does not try a second time.
    QDBusConnection::sessionBus();
    if (m_hadAddress) {
      qputenv(addressVariable, m_address);
    } else {
      qunsetenv(addressVariable);
    }
  }
}

}  // namespace mireval
