#include "ui/MenuBarScene.h"

#include "platform/Compositor.h"
#include "platform/MenuBarExtra.h"

#include <QCoreApplication>

#include <cstdio>
#include <utility>

namespace mireval {
namespace {

// A click on the icon may first take the focus away and so dismiss the panel that it is meant to close.
constexpr qint64 reopeningGuardMs = 300;

}  // namespace

MenuBarScene::MenuBarScene(Surroundings surroundings) : m_surroundings(surroundings) {
  connect(&m_closedPanels, &ClosedWindows::deleted, this, &MenuBarScene::panelDidClose);
}

MenuBarScene::~MenuBarScene() = default;

void MenuBarScene::show(const std::filesystem::path& icon) {
  m_surroundings.menuBarExtra.show(
      icon, [this](QPoint where) { toggle(where); }, [this] { handleMissingMenuBar(); });
}

void MenuBarScene::toggle(QPoint where) {
  if (m_panel) {
    close();
  } else if (!m_sinceTurningAway.isValid() || m_sinceTurningAway.hasExpired(reopeningGuardMs)) {
    m_lastPlace = where;
    open(PanelWindow::Style::dropDown, where);
  }
}

void MenuBarScene::showPanel() {
  if (m_panel) {
    m_panel->bringToFront();
  } else if (m_lastPlace && m_surroundings.menuBarExtra.isPlaced()) {
    open(PanelWindow::Style::dropDown, *m_lastPlace);
  } else {
    open(PanelWindow::Style::framed, {});
  }
}

void MenuBarScene::open(PanelWindow::Style style, QPoint where) {
  Q_EMIT panelWillOpen();
  m_panel = std::make_unique<PanelWindow>(style, m_surroundings.compositor.blendsWindows(),
                                          m_surroundings.audioPlayer, m_surroundings.localization,
                                          m_surroundings.colorScheme);
  connect(m_panel.get(), &PanelWindow::dismissed, this, &MenuBarScene::handleDismissal);
  connect(m_panel.get(), &PanelWindow::settingsRequested, this, &MenuBarScene::settingsRequested);
  connect(m_panel.get(), &PanelWindow::quitRequested, this, &MenuBarScene::quitRequested);
  m_panel->open(where);
}

void MenuBarScene::close() {
  // Its hiding must not count as the user's doing.
  m_panel->disconnect(this);
  m_panel->hide();
  m_closedPanels.add(std::move(m_panel));
}

void MenuBarScene::handleDismissal(PanelWindow::Dismissal how) {
  if (how == PanelWindow::Dismissal::turnedAway) {
    m_sinceTurningAway.start();
  }
  close();
  if (!m_surroundings.menuBarExtra.isPlaced()) {
    Q_EMIT quitRequested();
  }
}

void MenuBarScene::handleMissingMenuBar() {
  std::fputs("mireval: the desktop has no tray for the icon; the panel opens as a window\n", stderr);
  if (!m_panel) {
    open(PanelWindow::Style::framed, {});
  }
}

}  // namespace mireval
