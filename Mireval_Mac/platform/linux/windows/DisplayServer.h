#pragma once

#include <QByteArray>

#include <chrono>

namespace mireval {

/// Which displays Qt can use.
struct UsableDisplays {
  /// Qt's platforms, as in QT_QPA_PLATFORM, from the first one on whose display answers. Empty if none does.
  QByteArray platforms;
  /// An X server that comes before these accepts connections, but did not answer in time.
  bool x11IsSilent = false;
};

/// Tries the displays of the platforms, separated by ";". A platform that needs no display server is always
/// usable. Ask before the application object is made, because Qt waits for a silent server without end, and
/// ends the process when there is no display. Takes a few milliseconds with a local server, and at most
/// `patience`, in whole seconds, with a silent one. The process must have one thread only.
UsableDisplays findUsableDisplays(const QByteArray& platforms,
                                  std::chrono::seconds patience = std::chrono::seconds(3));

}  // namespace mireval
