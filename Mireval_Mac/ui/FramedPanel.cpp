#include "ui/FramedPanel.h"

namespace mireval {

FramedPanel::FramedPanel(const std::filesystem::path& icon, AudioPlayerController& audioPlayer,
                         AppLocalization& localization, ColorScheme& colorScheme)
    : PanelWindow(audioPlayer, localization, colorScheme) {
  setFramed(icon);
  setGround(colorScheme, Qt::white, Qt::black);
}

}  // namespace mireval
