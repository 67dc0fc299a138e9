#pragma once

#include <QByteArray>

namespace mireval {

/// Keeps Qt from waiting for a session bus that accepts connections and never answers: Qt's own users of the
/// bus, such as its support for screen readers, wait for the first answer without a limit.
///
/// While the guard lives, a silent bus is hidden from this process. Afterwards others find the bus again, but
/// Qt never does. Used on the UI thread.
class SilentBusGuard {
 public:
  /// Waits for a sign of life from the bus, for a quarter of a second at most.
  SilentBusGuard();

  /// Needs the application object.
  ~SilentBusGuard();

  SilentBusGuard(const SilentBusGuard&) = delete;
  SilentBusGuard& operator=(const SilentBusGuard&) = delete;

  bool busIsSilent() const { return m_busIsSilent; }

 private:
  const bool m_busIsSilent;
  const bool m_hadAddress;
  const QByteArray m_address;
};

}  // namespace mireval
