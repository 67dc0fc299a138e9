#include "ui/SettingsScene.h"

#include <QFile>
#include <QIcon>

#include <utility>

namespace mireval {

SettingsScene::SettingsScene(AppLocalization& localization, ColorScheme& colorScheme,
                             std::filesystem::path icon)
    : m_localization(localization), m_colorScheme(colorScheme), m_icon(std::move(icon)) {
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
  m_window->setIcon(QIcon(QFile::decodeName(m_icon.c_str())));
  m_window->open();
}

void SettingsScene::letGo() {
  m_window->disconnect(this);
  m_closedWindows.add(std::move(m_window));
}

}  // namespace mireval
