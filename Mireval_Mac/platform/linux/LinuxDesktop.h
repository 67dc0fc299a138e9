#pragma once

#include "platform/Desktop.h"
#include "platform/linux/instance/SingleInstance.h"
#include "platform/qt/StandardError.h"

#include <memory>
#include <optional>
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
  enum class Start {
    forPanel,
    forSettings,
    /// The message bus started it and is about to pass on a request.
    byBus,
  };

  Notices& notices() { return m_notices; }

  /// Writes the text to standard output. False if it cannot be written, or if nobody takes it within 3 s.
  static bool print(std::string_view text);

  /// Does what comes before the application object. Returns the process's exit status where nothing is left
  /// to do: a running copy shows what is wanted or does not answer, or no display answers. Takes a few
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
  Start m_start = Start::forPanel;
};

}  // namespace mireval
