#include "ui/ClickCatcher.h"

#include "platform/ScreenArea.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <QScreen>
#include <QSurfaceFormat>

#include <chrono>

namespace mireval {
namespace {

// Only while a click on the icon is waited for.
constexpr auto lookInterval = std::chrono::milliseconds(10);

QPoint inPixelsOfTheWindowSystem(QPointF place) {
  const QScreen* const shown = QGuiApplication::screenAt(place.toPoint());
  const QScreen* const screen = shown != nullptr ? shown : QGuiApplication::primaryScreen();
  return ScreenArea{.geometry = screen->geometry(), .scale = screen->devicePixelRatio()}.toNative(place);
}

}  // namespace

ClickCatcher::ClickCatcher() {
  QSurfaceFormat format;
  format.setAlphaBufferSize(8);
  setFormat(format);
  // Not for the keyboard, and not for the window manager.
  setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
  setGeometry(QGuiApplication::primaryScreen()->virtualGeometry());
  connect(&m_looking, &QTimer::timeout, this, &ClickCatcher::look);
}

void ClickCatcher::findPointer() {
  // The X server believes the pointer where it was last above one of its windows. Once that is a place where
  // no icon is, any other place is the true one. The real pointer, above a window that is not the server's,
  // stays where it is.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().center());
  m_wrongPlace = QCursor::pos();
  m_looking.start(lookInterval);
}

void ClickCatcher::stopFinding() {
  m_looking.stop();
}

void ClickCatcher::look() {
  // The server tells the true place only to those who ask.
  if (const QPoint place = QCursor::pos(); place != m_wrongPlace) {
    stopFinding();
    Q_EMIT pointerFound(inPixelsOfTheWindowSystem(place));
  }
}

void ClickCatcher::leaveOut(const QRect& area) {
  setMask(QRegion(QRect(QPoint(), size())) - area.translated(-position()));
}

void ClickCatcher::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
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
