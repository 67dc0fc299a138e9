#include "ui/PanelWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"
#include "playback/AudioPlayerController.h"
#include "ui/ContinuousRectangle.h"
#include "ui/PanelPlacement.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QMarginsF>
#include <QQmlEngine>
#include <QRegion>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <utility>
#include <vector>

namespace mireval {
namespace {

using namespace std::chrono_literals;

// Of the panel, and the room around it.
constexpr qreal cornerRadius = 28;
constexpr qreal margin = 1;
constexpr Qt::WindowFlags unmanagedWindow =
    Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
constexpr auto grabRetryInterval = 30ms;
constexpr int grabAttempts = 40;

bool isSettingsCommand(const QKeyEvent& event) {
  // Some desktops have a key of their own for it.
  return event.matches(QKeySequence::Preferences) ||
         (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Comma);
}

}  // namespace

PanelWindow::PanelWindow(Style style, const WindowSystem& windowSystem, AudioPlayerController& audioPlayer,
                         AppLocalization& localization, ColorScheme& colorScheme)
    : ViewWindow(QStringLiteral("PanelSurface.qml"), {{QStringLiteral("audioPlayer"), &audioPlayer},
                                                      {QStringLiteral("localization"), &localization},
                                                      {QStringLiteral("colorScheme"), &colorScheme}}),
      m_style(style),
      m_windowSystem(windowSystem),
      m_dropDown(windowSystem.dropDown()),
      m_blended(windowSystem.blendsWindows()) {
  if (m_style == Style::framed) {
    setFramed();
  } else {
    setDropDown();
  }
  if (m_style == Style::framed || !m_blended) {
    setOpaque(colorScheme);
  } else {
    setColor(Qt::transparent);
  }
  connect(engine(), &QQmlEngine::quit, this, &PanelWindow::quitRequested);
}

PanelWindow::~PanelWindow() = default;

bool PanelWindow::needsCatcher(WindowSystem::DropDown dropDown) {
  return dropDown == WindowSystem::DropDown::managed || dropDown == WindowSystem::DropDown::unmanaged;
}

void PanelWindow::setDropDown() {
  switch (m_dropDown) {
    case WindowSystem::DropDown::grabbing:
      setFlags(unmanagedWindow | Qt::WindowStaysOnTopHint);
      break;
    case WindowSystem::DropDown::managed:
      setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
      break;
    case WindowSystem::DropDown::unmanaged:
      setFlags(Qt::Popup | Qt::FramelessWindowHint);
      // Qt hides pop-ups from screen readers. What is shown and has the keyboard keeps it as another kind.
      connect(this, &QWindow::activeChanged, this, [this] {
        if (isActive()) {
          setFlags(unmanagedWindow);
        }
      });
      break;
    case WindowSystem::DropDown::placedByDesktop:
      setFlags(Qt::Window | Qt::FramelessWindowHint);
      // Tiling desktops let windows of one size float.
      holdSize();
      break;
  }
}

void PanelWindow::open() {
  show();
}

void PanelWindow::open(const std::optional<QRect>& icon, std::unique_ptr<ClickCatcher> catcher) {
  m_icon = icon;
  m_catcher = std::move(catcher);
  if (!m_catcher && needsCatcher(m_dropDown)) {
    m_catcher = std::make_unique<ClickCatcher>();
  }
  place();
  if (m_catcher) {
    connect(m_catcher.get(), &ClickCatcher::clicked, this, [this] { dismiss(Dismissal::turnedAway); });
    m_catcher->show();
  }
  if (m_dropDown == WindowSystem::DropDown::managed) {
    m_windowSystem.keepOutOfLists(*this);
  }
  show();
  requestActivate();
  grabInput(grabAttempts);
}

void PanelWindow::place() {
  const std::vector<ScreenArea> screens = m_windowSystem.screens();
  if (screens.empty()) {
    return;
  }
  const PanelPlacement placement = placePanel(m_icon, size(), screens);
  // First: it tells what the position means.
  setScreen(QGuiApplication::screens().at(static_cast<qsizetype>(placement.screen)));
  setPosition(placement.position);
  if (m_catcher) {
    m_catcher->leaveOut(geometry());
  }
  cutCornersOff();
}

void PanelWindow::grabInput(int attemptsLeft) {
  if (!isVisible()) {
    return;
  }
  bool grabbed = true;
  if (m_dropDown == WindowSystem::DropDown::grabbing) {
    // The keyboard is left alone: grabbing it would swallow the media keys.
    grabbed = setMouseGrabEnabled(true);
  } else if (m_dropDown == WindowSystem::DropDown::unmanaged) {
    // The desktop lets the X server have the keyboard, but does not tell the server for which window. The
    // desktop's own keys, such as the media keys, do not come this way.
    grabbed = setKeyboardGrabEnabled(true);
  }
  // The tray that was clicked may still hold the pointer, and the window may not be on the screen yet.
  if (!grabbed && attemptsLeft > 1) {
    QTimer::singleShot(grabRetryInterval, this, [this, attemptsLeft] { grabInput(attemptsLeft - 1); });
  }
}

void PanelWindow::dismiss(Dismissal how) {
  if (isVisible()) {
    hide();
    Q_EMIT dismissed(how);
  }
}

bool PanelWindow::event(QEvent* event) {
  if (event->type() == QEvent::Close) {
    const bool closed = ViewWindow::event(event);
    Q_EMIT dismissed(Dismissal::deliberate);
    return closed;
  }
  return ViewWindow::event(event);
}

void PanelWindow::focusOutEvent(QFocusEvent* event) {
  ViewWindow::focusOutEvent(event);
  if (m_style == Style::dropDown) {
    dismiss(Dismissal::turnedAway);
  }
}

void PanelWindow::hideEvent(QHideEvent* event) {
  if (m_catcher) {
    m_catcher->hide();
  }
  ViewWindow::hideEvent(event);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (m_style == Style::dropDown && event->key() == Qt::Key_Escape) {
    dismiss(Dismissal::deliberate);
    return;
  }
  if (isSettingsCommand(*event)) {
    Q_EMIT settingsRequested();
    return;
  }
  ViewWindow::keyPressEvent(event);
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  if (m_style == Style::dropDown && !QRect(QPoint(), size()).contains(event->position().toPoint())) {
    m_pressedOutside = true;
    return;
  }
  ViewWindow::mousePressEvent(event);
}

void PanelWindow::mouseReleaseEvent(QMouseEvent* event) {
  // Not on the press: a tray acts on the release and, with the pointer free again, would reopen the panel.
  if (m_pressedOutside) {
    m_pressedOutside = false;
    dismiss(Dismissal::turnedAway);
    return;
  }
  ViewWindow::mouseReleaseEvent(event);
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
  ViewWindow::resizeEvent(event);
  // The texts of another language may be higher.
  if (m_style == Style::dropDown && isVisible()) {
    place();
  }
}

void PanelWindow::cutCornersOff() {
  if (!m_blended) {
    const QRectF panel = QRectF(QPointF(), QSizeF(size())) - QMarginsF(margin, margin, margin, margin);
    setMask(QRegion(continuousRectangle(panel, cornerRadius).toFillPolygon().toPolygon()));
  }
}

}  // namespace mireval
