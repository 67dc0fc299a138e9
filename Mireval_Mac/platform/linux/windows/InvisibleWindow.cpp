#include "platform/linux/windows/InvisibleWindow.h"

#include <QPainter>
#include <QRegion>
#include <QSurfaceFormat>

#include <utility>

namespace mireval {

InvisibleWindow::InvisibleWindow(const QRect& area) {
  QSurfaceFormat format;
  format.setAlphaBufferSize(8);
  setFormat(format);
  setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
  setGeometry(area);
}

void InvisibleWindow::leaveOut(const QRect& area) {
  setMask(QRegion(QRect(QPoint(), size())) - area.translated(-position()));
}

void InvisibleWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

void InvisibleWindow::mousePressEvent(QMouseEvent*) {
  m_pressed = true;
}

void InvisibleWindow::mouseReleaseEvent(QMouseEvent*) {
  // Not on the press: a tray that gets the release would act on it.
  if (std::exchange(m_pressed, false)) {
    Q_EMIT clicked();
  }
}

}  // namespace mireval
