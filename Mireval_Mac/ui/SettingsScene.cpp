#include "ui/SettingsScene.h"

#include <utility>

namespace mireval {

SettingsScene::SettingsScene(AppLocalization& localization, ColorScheme& colorScheme,
                             std::filesystem::path icon)
    : m_localization(localization), m_colorScheme(colorScheme), m_icon(std::move(icon)) {}

SettingsScene::~SettingsScene() = default;

void SettingsScene::show() {
  Q_EMIT windowWillShow();
  if (m_window) {
    m_window->bringToFront();
    return;
  }
  m_window = std::make_unique<SettingsWindow>(m_icon, m_localization, m_colorScheme);
  connect(m_window.get(), &SettingsWindow::closed, this, &SettingsScene::release);
  // Queued: when the signal comes, the window still has its QML engine.
  connect(m_window.get(), &QObject::destroyed, this, &SettingsScene::windowDidClose, Qt::QueuedConnection);
  m_window->open();
}

void SettingsScene::release() {
  disconnect(m_window.get(), &SettingsWindow::closed, this, nullptr);
  // An event handler of the window has called this.
  m_window.release()->deleteLater();
}

}  // namespace mireval
