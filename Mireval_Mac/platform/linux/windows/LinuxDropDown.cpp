#include "platform/linux/windows/LinuxDropDown.h"

#include <QMouseEvent>
#include <QScreen>
#include <QTimer>

#include <chrono>

namespace mireval {
namespace {

// The tray holds the pointer as long as the button is pressed, and the server needs a moment to show the
// window. After 1.2 seconds it is neither.
constexpr auto grabInterval = std::chrono::milliseconds(30);
constexpr int grabAttempts = 40;

}  // namespace

LinuxDropDown::LinuxDropDown(QWindow& window, Qt::WindowFlags flags) : m_window(window) {
  m_window.setFlags(flags);
  m_window.installEventFilter(this);
}

void LinuxDropDown::catchClicks() {
  m_catcher = std::make_unique<ClickCatcher>();
  connect(m_catcher.get(), &ClickCatcher::clicked, this, &DropDown::clickedOutside);
}

void LinuxDropDown::moveTo(QScreen& screen, QPoint position) {
  // The screen comes first: the position depends on its scale.
  m_window.setScreen(&screen);
  m_window.setPosition(position);
  if (m_catcher) {
    m_catcher->leaveOut(m_window.geometry());
  }
}

void LinuxDropDown::show() {
  if (m_catcher) {
    m_catcher->show();
  }
  m_window.show();
  m_window.requestActivate();
  grabInput(grabAttempts);
}

void LinuxDropDown::grabInput(int attemptsLeft) {
  if (m_window.isVisible() && !grab() && attemptsLeft > 1) {
    QTimer::singleShot(grabInterval, this, [this, attemptsLeft] { grabInput(attemptsLeft - 1); });
  }
}

bool LinuxDropDown::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      m_pressedOutside = !QRect(QPoint(), m_window.size())
                              .contains(static_cast<const QMouseEvent*>(event)->position().toPoint());
      return m_pressedOutside;
    case QEvent::MouseButtonRelease:
      // Not on the press: a tray acts on the release. With the pointer free again, it would reopen the panel.
      if (m_pressedOutside) {
        m_pressedOutside = false;
        Q_EMIT clickedOutside();
        return true;
      }
      break;
    case QEvent::Hide:
      if (m_catcher) {
        m_catcher->hide();
      }
      break;
    default:
      break;
  }
  return DropDown::eventFilter(watched, event);
}

}  // namespace mireval
