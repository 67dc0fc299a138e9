#include "ui/SettingsScene.h"

#include <utility>

namespace mireval {

SettingsScene::SettingsScene(AppLocalization& localization, ColorScheme& colorScheme)
    : m_localization(localization), m_colorScheme(colorScheme) {
  connect(&m_closedWindows, &ClosedWindows::deleted, this, &SettingsScene::windowDidClose);
}

SettingsScene::~SettingsScene() = default;

void SettingsScene::show() {
  if (m_window) {
    m_window->bringToFront();
    return;
  }
  m_window = std::make_unique<SettingsWindow>(m_localization, m_colorScheme);
  connect(m_window.get(), &SettingsWindow::closed, this, &SettingsScene::letGo);
  m_window->open();
}

void SettingsScene::letGo() {
  m_window->disconnect(this);
  m_closedWindows.add(std::move(m_window));
}

}  // namespace mireval
