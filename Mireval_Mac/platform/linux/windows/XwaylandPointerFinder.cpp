#include "platform/linux/windows/XwaylandPointerFinder.h"

#include "platform/ScreenArea.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <chrono>

namespace mireval {
namespace {

// Short, because the panel waits for the answer; the search lasts only as long as a click.
constexpr auto lookInterval = std::chrono::milliseconds(10);

// labwc checks what is under a resting pointer when a window appears or disappears, but not while a button is
// pressed. So a second window does that now and then.
constexpr int looksBetweenNudges = 10;

QPoint inNativePixels(QPointF place) {
  const QScreen* const shown = QGuiApplication::screenAt(place.toPoint());
  const QScreen* const screen = shown != nullptr ? shown : QGuiApplication::primaryScreen();
  return ScreenArea{.geometry = screen->geometry(), .scale = screen->devicePixelRatio()}.toNative(place);
}

}  // namespace

XwaylandPointerFinder::XwaylandPointerFinder()
    : m_cover(QGuiApplication::primaryScreen()->virtualGeometry()),
      m_nudge(QRect(m_cover.position(), QSize(1, 1))) {
  // Xwayland reports the last position over one of its own windows. This sets it to a place where no icon is.
  // So any other position that it reports later is the true one. The real pointer does not move.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().center());
  m_wrongPlace = QCursor::pos();
  connect(&m_timer, &QTimer::timeout, this, &XwaylandPointerFinder::look);
  m_timer.start(lookInterval);
  m_cover.show();
}

void XwaylandPointerFinder::look() {
  // Xwayland sends no event for this; it only answers questions.
  if (const QPoint place = QCursor::pos(); place != m_wrongPlace) {
    m_timer.stop();
    Q_EMIT found(inNativePixels(place));
  } else if (++m_looks % looksBetweenNudges == 0) {
    m_nudge.setVisible(!m_nudge.isVisible());
  }
}

}  // namespace mireval
