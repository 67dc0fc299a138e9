#include "ui/MenuBarScene.h"

#include "platform/MenuBarExtra.h"
#include "platform/Notices.h"
#include "platform/WindowSystem.h"
#include "playback/AudioPlayerController.h"
#include "ui/DropDownPanel.h"
#include "ui/FramedPanel.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <algorithm>
#include <chrono>
#include <utility>

namespace mireval {
namespace {

// A click on the icon may first take the focus away and so dismiss the panel that it is meant to close.
constexpr qint64 reopeningGuardMs = 300;

/// The guard's time. The second click of a double click that closes the panel does not reopen it either.
qint64 reopeningTime() {
  return std::max<qint64>(reopeningGuardMs, QGuiApplication::styleHints()->mouseDoubleClickInterval());
}

// The pointer's place is known when the button is released, and sometimes never. An earlier place is a good
// second choice, so it is used soon.
constexpr auto patienceWithKnownPlace = std::chrono::milliseconds(400);
constexpr auto patienceWithoutPlace = std::chrono::seconds(2);

}  // namespace

MenuBarScene::MenuBarScene(Services services) : m_services(services) {
  m_finderPatience.setSingleShot(true);
  connect(&m_finderPatience, &QTimer::timeout, this, &MenuBarScene::openDropDown);
  const AudioPlayerController* const player = &m_services.audioPlayer;
  connect(player, &AudioPlayerController::currentTrackChanged, this, &MenuBarScene::updateToolTip);
  connect(player, &AudioPlayerController::isPlayingChanged, this, &MenuBarScene::updateToolTip);
}

MenuBarScene::~MenuBarScene() = default;

void MenuBarScene::show(const std::filesystem::path& icon) {
  m_icon = icon;
  m_services.menuBarExtra.show(icon,
                               {.activated = [this](const std::optional<QRect>& place) { toggle(place); },
                                .placed = [this] { handlePlacedIcon(); },
                                .lost = [this] { handleLostIcon(); },
                                .missing = [this] { handleMissingMenuBar(); }});
}

bool MenuBarScene::canOpen() const {
  return ViewWindow::canOpen(m_services.windowSystem, m_services.notices);
}

void MenuBarScene::toggle(const std::optional<QRect>& place) {
  if (m_panel || m_finder) {
    close();
    return;
  }
  if (m_sinceTurningAway.isValid() && !m_sinceTurningAway.hasExpired(reopeningTime())) {
    return;
  }
  if (!canOpen()) {
    return;
  }
  if (place) {
    m_place = place;
  }
  if (place || !findIcon()) {
    openDropDown();
  }
}

bool MenuBarScene::findIcon() {
  m_finder = m_services.windowSystem.findPointer();
  if (!m_finder) {
    return false;
  }
  connect(m_finder.get(), &PointerFinder::found, this, [this](QPoint pointer) {
    m_place = QRect(pointer, QSize(1, 1));
    openDropDown();
  });
  m_finderPatience.start(m_place ? patienceWithKnownPlace : patienceWithoutPlace);
  return true;
}

void MenuBarScene::endSearch() {
  m_finderPatience.stop();
  if (m_finder) {
    m_finder->disconnect(this);
    // The finder itself may have called this.
    m_finder.release()->deleteLater();
  }
}

void MenuBarScene::showPanel() {
  if (m_panel) {
    m_panelIsUnasked = false;
    m_panel->bringToFront();
  } else if (m_services.menuBarExtra.isPlaced()) {
    openDropDown();
  } else {
    openFramed();
  }
}

void MenuBarScene::setSettingsOpen(bool open) {
  if (m_panel) {
    m_panel->setSettingsOpen(open);
  }
}

void MenuBarScene::openDropDown() {
  endSearch();
  if (!canOpen()) {
    return;
  }
  Q_EMIT panelWillOpen();
  auto panel = std::make_unique<DropDownPanel>(m_place, m_services.windowSystem, m_services.audioPlayer,
                                               m_services.localization, m_services.colorScheme);
  connect(panel.get(), &PanelWindow::dismissed, this, [this](PanelWindow::Dismissal how) {
    if (how == PanelWindow::Dismissal::turnedAway) {
      m_sinceTurningAway.start();
    }
    close();
  });
  open(std::move(panel));
}

void MenuBarScene::openFramed() {
  if (!canOpen()) {
    return;
  }
  Q_EMIT panelWillOpen();
  auto panel = std::make_unique<FramedPanel>(m_icon, m_services.audioPlayer, m_services.localization,
                                             m_services.colorScheme);
  connect(panel.get(), &PanelWindow::dismissed, this, [this] {
    close();
    // Nothing is left that could open it again.
    if (!m_services.menuBarExtra.isPlaced()) {
      Q_EMIT quitRequested();
    }
  });
  open(std::move(panel));
}

void MenuBarScene::open(std::unique_ptr<PanelWindow> panel) {
  m_panel = std::move(panel);
  m_panelIsUnasked = false;
  connect(m_panel.get(), &PanelWindow::settingsRequested, this, &MenuBarScene::settingsRequested);
  connect(m_panel.get(), &PanelWindow::quitRequested, this, &MenuBarScene::quitRequested);
  // Queued: when the signal comes, the panel still has its QML engine.
  connect(m_panel.get(), &QObject::destroyed, this, &MenuBarScene::panelDidClose, Qt::QueuedConnection);
  m_panel->open();
}

void MenuBarScene::close() {
  endSearch();
  if (m_panel) {
    // Hiding takes the focus away, which the user has not done.
    disconnect(m_panel.get(), &PanelWindow::dismissed, this, nullptr);
    m_panel->hide();
    // An event handler of the panel may have called this.
    m_panel.release()->deleteLater();
  }
}

void MenuBarScene::handlePlacedIcon() {
  if (m_panel && m_panelIsUnasked && !m_panel->isUsed()) {
    close();
  }
}

void MenuBarScene::handleLostIcon() {
  if (!m_panel || qobject_cast<const DropDownPanel*>(m_panel.get()) != nullptr) {
    close();
  }
}

void MenuBarScene::handleMissingMenuBar() {
  m_services.notices.say("the desktop has no tray for the icon; the panel opens as a window");
  if (m_panel) {
    return;
  }
  openFramed();
  if (m_panel) {
    m_panelIsUnasked = true;
    // A screen reader presses a button without a pointer or a key.
    connect(&m_services.audioPlayer, &AudioPlayerController::isPlayingChanged, m_panel.get(),
            [this] { m_panelIsUnasked = false; });
  }
}

void MenuBarScene::updateToolTip() {
  const AudioPlayerController& player = m_services.audioPlayer;
  const bool plays = player.isPlaying() && player.currentTrack();
  m_services.menuBarExtra.setToolTip(plays ? player.currentTrack()->title : QString());
}

}  // namespace mireval
