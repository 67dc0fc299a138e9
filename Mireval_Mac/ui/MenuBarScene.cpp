#include "ui/MenuBarScene.h"

#include "platform/MenuBarExtra.h"
#include "playback/AudioPlayerController.h"

#include <QFile>
#include <QIcon>

#include <chrono>
#include <cstdio>
#include <utility>

namespace mireval {
namespace {

// A click on the icon may first take the focus away and so dismiss the panel that it is meant to close.
constexpr qint64 reopeningGuardMs = 300;
// The icon's place is told when the button is released, and sometimes not at all. Who knows an earlier place
// has less to lose.
constexpr auto patienceWithKnownPlace = std::chrono::milliseconds(400);
constexpr auto patienceWithoutPlace = std::chrono::seconds(2);

}  // namespace

MenuBarScene::MenuBarScene(Surroundings surroundings) : m_surroundings(surroundings) {
  m_finderPatience.setSingleShot(true);
  connect(&m_finderPatience, &QTimer::timeout, this, &MenuBarScene::openDropDown);
  const AudioPlayerController* const player = &m_surroundings.audioPlayer;
  connect(player, &AudioPlayerController::currentTrackChanged, this, &MenuBarScene::updateToolTip);
  connect(player, &AudioPlayerController::isPlayingChanged, this, &MenuBarScene::updateToolTip);
}

MenuBarScene::~MenuBarScene() = default;

void MenuBarScene::show(const std::filesystem::path& icon) {
  m_icon = icon;
  m_surroundings.menuBarExtra.show(icon,
                                   {.activated = [this](const std::optional<QRect>& place) { toggle(place); },
                                    .missing = [this] { handleMissingMenuBar(); }});
}

void MenuBarScene::toggle(const std::optional<QRect>& place) {
  if (m_panel || m_finder) {
    close();
    return;
  }
  if (m_sinceTurningAway.isValid() && !m_sinceTurningAway.hasExpired(reopeningGuardMs)) {
    return;
  }
  if (!place && PanelWindow::needsCatcher(m_surroundings.windowSystem.dropDown())) {
    findIcon();
    return;
  }
  if (place) {
    m_place = place;
  }
  openDropDown();
}

void MenuBarScene::findIcon() {
  m_finder = std::make_unique<ClickCatcher>();
  connect(m_finder.get(), &ClickCatcher::pointerFound, this, [this](QPoint pointer) {
    m_place = QRect(pointer, QSize(1, 1));
    openDropDown();
  });
  m_finder->findPointer();
  m_finder->show();
  m_finderPatience.start(m_place ? patienceWithKnownPlace : patienceWithoutPlace);
}

void MenuBarScene::showPanel() {
  if (m_panel) {
    m_panel->bringToFront();
  } else if (m_surroundings.menuBarExtra.isPlaced()) {
    openDropDown();
  } else {
    openFramed();
  }
}

void MenuBarScene::openDropDown() {
  m_finderPatience.stop();
  if (m_finder) {
    m_finder->stopFinding();
  }
  makePanel(PanelWindow::Style::dropDown).open(m_place, std::move(m_finder));
}

void MenuBarScene::openFramed() {
  PanelWindow& panel = makePanel(PanelWindow::Style::framed);
  panel.setIcon(QIcon(QFile::decodeName(m_icon.c_str())));
  panel.open();
}

PanelWindow& MenuBarScene::makePanel(PanelWindow::Style style) {
  Q_EMIT panelWillOpen();
  m_panel = std::make_unique<PanelWindow>(style, m_surroundings.windowSystem, m_surroundings.audioPlayer,
                                          m_surroundings.localization, m_surroundings.colorScheme);
  connect(m_panel.get(), &PanelWindow::dismissed, this, &MenuBarScene::handleDismissal);
  connect(m_panel.get(), &PanelWindow::settingsRequested, this, &MenuBarScene::settingsRequested);
  connect(m_panel.get(), &PanelWindow::quitRequested, this, &MenuBarScene::quitRequested);
  // Queued: when the signal comes, the panel still has its QML engine.
  connect(m_panel.get(), &QObject::destroyed, this, &MenuBarScene::panelDidClose, Qt::QueuedConnection);
  return *m_panel;
}

void MenuBarScene::close() {
  m_finderPatience.stop();
  m_finder.reset();
  if (m_panel) {
    // Hiding takes the focus away, which the user has not done.
    disconnect(m_panel.get(), &PanelWindow::dismissed, this, nullptr);
    m_panel->hide();
    // This may be called by an event handler of the panel.
    m_panel.release()->deleteLater();
  }
}

void MenuBarScene::handleDismissal(PanelWindow::Dismissal how) {
  if (how == PanelWindow::Dismissal::turnedAway) {
    m_sinceTurningAway.start();
  }
  // A drop-down has come from an icon; if that is away now, it is only the bar that is away.
  const bool wasInsteadOfTheIcon =
      m_panel->style() == PanelWindow::Style::framed && !m_surroundings.menuBarExtra.isPlaced();
  close();
  if (wasInsteadOfTheIcon) {
    Q_EMIT quitRequested();
  }
}

void MenuBarScene::handleMissingMenuBar() {
  std::fputs("mireval: the desktop has no tray for the icon; the panel opens as a window\n", stderr);
  if (!m_panel) {
    openFramed();
  }
}

void MenuBarScene::updateToolTip() {
  const AudioPlayerController& player = m_surroundings.audioPlayer;
  const bool plays = player.isPlaying() && player.currentTrack();
  m_surroundings.menuBarExtra.setToolTip(plays ? player.currentTrack()->title : QString());
}

}  // namespace mireval
