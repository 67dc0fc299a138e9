#include "platform/linux/windows/ClickCatcher.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>

namespace mireval {

ClickCatcher::ClickCatcher() : InvisibleWindow(QGuiApplication::primaryScreen()->virtualGeometry()) {}

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
