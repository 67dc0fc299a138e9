#include "ui/ClickCatcher.h"

#include "platform/ScreenArea.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QRegion>
#include <QScreen>

#include <chrono>

namespace mireval {
namespace {

// Only while a click on the icon is waited for.
constexpr auto lookInterval = std::chrono::milliseconds(10);

// labwc looks what is under a pointer at rest when some window comes or goes, but not while a button is
// pressed.
constexpr int looksBetweenNudges = 10;

QPoint inPixelsOfTheWindowSystem(QPointF place) {
  const QScreen* const shown = QGuiApplication::screenAt(place.toPoint());
  const QScreen* const screen = shown != nullptr ? shown : QGuiApplication::primaryScreen();
  return ScreenArea{.geometry = screen->geometry(), .scale = screen->devicePixelRatio()}.toNative(place);
}

}  // namespace

ClickCatcher::ClickCatcher()
    : InvisibleWindow(QGuiApplication::primaryScreen()->virtualGeometry()),
      m_nudge(QRect(position(), QSize(1, 1))) {
  connect(&m_looking, &QTimer::timeout, this, &ClickCatcher::look);
}

void ClickCatcher::findPointer() {
  // The X server believes the pointer where it was last above one of its windows. Once that is a place where
  // no icon is, any other place is the true one. The real pointer, above a window that is not the server's,
  // stays where it is.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().center());
  m_wrongPlace = QCursor::pos();
  m_looks = 0;
  m_looking.start(lookInterval);
}

void ClickCatcher::stopFinding() {
  m_looking.stop();
  m_nudge.hide();
}

void ClickCatcher::look() {
  // The server tells the true place only to those who ask.
  if (const QPoint place = QCursor::pos(); place != m_wrongPlace) {
    stopFinding();
    Q_EMIT pointerFound(inPixelsOfTheWindowSystem(place));
  } else if (++m_looks % looksBetweenNudges == 0) {
    m_nudge.setVisible(!m_nudge.isVisible());
  }
}

void ClickCatcher::leaveOut(const QRect& area) {
  setMask(QRegion(QRect(QPoint(), size())) - area.translated(-position()));
}

void ClickCatcher::mousePressEvent(QMouseEvent*) {
  m_pressed = true;
}

void ClickCatcher::mouseReleaseEvent(QMouseEvent*) {
  // Not on the press: a tray that gets the release would act on it.
  if (m_pressed) {
    m_pressed = false;
    Q_EMIT clicked();
  }
}

}  // namespace mireval
