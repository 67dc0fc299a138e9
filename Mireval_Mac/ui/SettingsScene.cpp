#include "ui/SettingsScene.h"

#include <utility>

namespace mireval {

SettingsScene::SettingsScene(AppLocalization& localization, ColorScheme& colorScheme)
    : m_localization(localization), m_colorScheme(colorScheme) {}

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
  m_closedWindows.push_back(std::move(m_window));
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_closedWindows.clear();
        Q_EMIT windowDidClose();
      },
      Qt::QueuedConnection);
}

}  // namespace mireval
