#pragma once

#include <QByteArray>

#include <chrono>

namespace mireval {

/// Which displays Qt can use.
struct UsableDisplays {
  /// Qt's platforms, as in QT_QPA_PLATFORM, from the first one on whose display answers. Empty if none does.
  QByteArray platforms;
  /// The first of them is a Wayland compositor where the panel can be a layer.
  bool hasLayers = false;
  /// These accept connections and come before those that are usable, but did not answer in time.
  bool x11IsSilent = false;
  bool waylandIsSilent = false;
};

/// Tries the displays of the platforms, separated by ";". Without any, tries those of Linux desktops in the
/// order that suits the panel: Wayland first where the panel can be a layer; otherwise X11 first, also the
/// one inside a Wayland session, because a window can choose its place there. A platform that needs no
/// display server is always usable.
///
/// Ask before the application object is made, because Qt waits for a silent server without end, and ends the
/// process when there is no display. Takes a few milliseconds with a local server, and at most `patience`, in
/// whole seconds, with each silent one. No other thread may change the environment meanwhile.
UsableDisplays findUsableDisplays(const QByteArray& platforms,
                                  std::chrono::seconds patience = std::chrono::seconds(3));

}  // namespace mireval
