#pragma once

#include "ui/PanelWindow.h"

#include <filesystem>

namespace mireval {

/// The panel with the desktop's own frame, where the desktop puts it. Dismissed by closing it.
class FramedPanel final : public PanelWindow {
  Q_OBJECT

 public:
  /// `icon` is the image file of the window's icon. The objects are not owned and must outlive the window.
  FramedPanel(const std::filesystem::path& icon, AudioPlayerController& audioPlayer,
              AppLocalization& localization, ColorScheme& colorScheme);

  void open() override { show(); }
};

}  // namespace mireval
