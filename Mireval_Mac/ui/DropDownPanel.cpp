#include "ui/DropDownPanel.h"

#include "platform/WindowSystem.h"
#include "ui/PanelPlacement.h"
#include "ui/PanelShape.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>
#include <QStyleHints>

#include <chrono>
#include <utility>
#include <vector>

namespace mireval {
namespace {

// Window managers give the keyboard of a window that closes to another one, maybe after the panel has taken
// it.
constexpr auto focusSettlingTime = std::chrono::milliseconds(300);

}  // namespace

DropDownPanel::DropDownPanel(const std::optional<QRect>& icon, const WindowSystem& windowSystem,
                             AudioPlayerController& audioPlayer, AppLocalization& localization,
                             ColorScheme& colorScheme)
    : PanelWindow(audioPlayer, localization, colorScheme),
      m_icon(icon),
      m_windowSystem(windowSystem),
      m_blended(windowSystem.blendsWindows()),
      m_dropDown(windowSystem.makeDropDown(*this)) {
  if (m_blended) {
    setColor(Qt::transparent);
    rootObject()->setProperty("shaded", true);
    // By itself, the window would follow in the next turn of the event loop.
    resize(viewSize());
  } else {
    setGround(colorScheme, Qt::white, Qt::black);
  }
  connect(m_dropDown.get(), &DropDown::clickedOutside, this, &DropDownPanel::handleClickOutside);
}

DropDownPanel::~DropDownPanel() = default;

void DropDownPanel::open() {
  place();
  m_dropDown->show();
  m_sinceOpening.start();
  m_openedAt = QCursor::pos();
}

void DropDownPanel::setSettingsOpen(bool open) {
  if (std::exchange(m_settingsOpen, open) && !open) {
    m_sinceSettings.start();
  }
  m_dropDown->setExclusive(!open);
}

void DropDownPanel::handleClickOutside() {
  const QStyleHints& hints = *QGuiApplication::styleHints();
  const bool isSecondOfTwo =
      m_sinceOpening.elapsed() < hints.mouseDoubleClickInterval() &&
      (QCursor::pos() - m_openedAt).manhattanLength() <= hints.mouseDoubleClickDistance();
  if (!isSecondOfTwo) {
    dismiss(Dismissal::turnedAway);
  }
}

void DropDownPanel::place() {
  const std::vector<ScreenArea> screens = m_windowSystem.screens(m_icon);
  if (screens.empty()) {
    return;
  }
  // The shadow may reach over the bar and beyond the screen.
  const int shadow = rootObject()->property("shadowReach").toInt();
  const PanelPlacement placement = placePanel(m_icon, size().shrunkBy(QMargins() + shadow), screens);
  QScreen* const screen = QGuiApplication::screens().at(static_cast<qsizetype>(placement.screen));
  m_dropDown->moveTo(*screen, screens[placement.screen].workArea,
                     placement.position - QPoint(shadow, shadow));
  shape();
}

void DropDownPanel::shape() {
  const qreal margin = rootObject()->property("margin").toReal();
  const qreal radius = rootObject()->property("cornerRadius").toReal();
  // Of the view, which may already be smaller than the window.
  m_dropDown->setShape(panelShape(viewSize() * devicePixelRatio(), devicePixelRatio(), margin, radius),
                       m_blended ? DropDown::Outside::shadow : DropDown::Outside::hidden);
}

void DropDownPanel::dismiss(Dismissal how) {
  if (isVisible()) {
    hide();
    Q_EMIT dismissed(how);
  }
}

void DropDownPanel::focusOutEvent(QFocusEvent* event) {
  PanelWindow::focusOutEvent(event);
  if (m_settingsOpen) {
    return;
  }
  if (m_sinceSettings.isValid() && m_sinceSettings.elapsed() < focusSettlingTime.count()) {
    m_dropDown->activate();
    return;
  }
  dismiss(Dismissal::turnedAway);
}

void DropDownPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    dismiss(Dismissal::deliberate);
    return;
  }
  PanelWindow::keyPressEvent(event);
}

void DropDownPanel::resizeEvent(QResizeEvent* event) {
  PanelWindow::resizeEvent(event);
  // The texts of another language may be higher.
  if (isVisible()) {
    place();
  }
}

void DropDownPanel::prepareSmallerFrame() {
  shape();
}

}  // namespace mireval
