#include "ui/ClickCatcher.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <QScreen>
#include <QSurfaceFormat>

namespace mireval {
namespace {

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
}

QPoint ClickCatcher::lastSeenPointer() {
  return inPixelsOfTheWindowSystem(QCursor::pos());
}

void ClickCatcher::leaveOut(const QRect& area) {
  setMask(QRegion(QRect(QPoint(), size())) - area.translated(-position()));
}

void ClickCatcher::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

void ClickCatcher::mouseMoveEvent(QMouseEvent* event) {
  // An arrival alone would not do: the first one tells where the pointer was when it was last above one of
  // the X server's windows.
  Q_EMIT pointerSeen(inPixelsOfTheWindowSystem(event->globalPosition()));
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
