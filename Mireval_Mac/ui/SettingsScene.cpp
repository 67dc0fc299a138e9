#include "ui/SettingsScene.h"

#include <utility>

namespace mireval {

SettingsScene::SettingsScene(Services services, std::filesystem::path icon)
    : m_services(services), m_icon(std::move(icon)) {}

SettingsScene::~SettingsScene() = default;

void SettingsScene::show() {
  if (!m_window && !ViewWindow::canOpen(m_services.windowSystem, m_services.notices)) {
    return;
  }
  Q_EMIT windowWillShow();
  if (m_window) {
    m_window->bringToFront();
    return;
  }
  m_window = std::make_unique<SettingsWindow>(m_icon, m_services.localization, m_services.colorScheme);
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
