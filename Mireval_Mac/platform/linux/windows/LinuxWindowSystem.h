#pragma once

#include "platform/WindowSystem.h"

#include <QPoint>

#include <optional>

namespace mireval {

class LayerShell;

/// X11, including the X server of a Wayland desktop, and Wayland. Needs the application object. Requests to
/// the X server wait for the answers.
class LinuxWindowSystem final : public WindowSystem {
 public:
  LinuxWindowSystem();
  ~LinuxWindowSystem() override;

  bool hasRoomForWindow() const override;
  std::unique_ptr<DropDown> makeDropDown(QWindow& window) const override;
  std::unique_ptr<PointerFinder> findPointer() const override;
  bool blendsWindows() const override;
  std::vector<ScreenArea> screens(const std::optional<QRect>& icon) const override;

  /// On a Wayland desktop that has layers. What hosts of the icon say about its place is in other pixels
  /// there.
  bool usesLayers() const { return m_layers != nullptr; }

  /// The pointer's position in the X server's pixels. Nothing on Wayland desktops, where that server knows it
  /// only while the pointer is above an X11 window.
  static std::optional<QPoint> pointer();

 private:
  const std::unique_ptr<LayerShell> m_layers;
};

}  // namespace mireval
