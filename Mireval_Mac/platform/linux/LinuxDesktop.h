#pragma once

#include "platform/Desktop.h"
#include "platform/linux/instance/SingleInstance.h"
#include "platform/qt/StandardError.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mireval {

class SilentBusGuard;

/// The application's place on a Linux desktop: first in the user's session, then all that the desktop
/// supplies. Lives on the UI thread, and longer than the application object.
class LinuxDesktop final {
 public:
  /// Makes sure that the descriptors 0 to 2 are open. To be constructed before any file is opened.
  LinuxDesktop();
  ~LinuxDesktop();

  /// Why the program was started.
  struct Start {
    /// What the running copy is asked for.
    enum class Purpose : std::uint8_t { panel, settings, mode };
    enum class Starter : std::uint8_t {
      user,
      /// The message bus, which is about to pass on a request.
      bus,
      /// The session, which may be late with its bar. A running copy is asked for nothing.
      session,
    };

    Purpose purpose = Purpose::panel;
    /// The raw value of the mode, with Purpose::mode.
    std::string mode = {};
    Starter starter = Starter::user;
  };

  Notices& notices() { return m_notices; }

  /// Writes the text to standard output. False if it cannot be written, or if nobody takes it within 3 s.
  static bool print(std::string_view text);

  /// Does what comes before the application object. Returns the process's exit status where nothing is left
  /// to do: a running copy does what is wanted or does not answer, or no display answers. Takes a few
  /// milliseconds for the first copy, and 3 s if the X server is silent.
  std::optional<int> prepare(Start start);

  /// Makes what the desktop supplies. Called once, after `prepare` and with the application object, which
  /// must outlive the result.
  std::shared_ptr<const Desktop> connect();

 private:
  struct Services;

  std::optional<int> handOver();
  bool chooseDisplay();

  StandardError m_notices;
  /// From `prepare` to `connect`, so while the application object is made.
  std::unique_ptr<SilentBusGuard> m_silentBusGuard;
  SingleInstance m_instance = SingleInstance::forCurrentUser();
  Start m_start;
};

}  // namespace mireval
