#include "platform/linux/windows/InvisibleWindow.h"

#include <QPainter>
#include <QSurfaceFormat>

namespace mireval {

InvisibleWindow::InvisibleWindow(const QRect& area) {
  QSurfaceFormat format;
  format.setAlphaBufferSize(8);
  setFormat(format);
  setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
  setGeometry(area);
}

void InvisibleWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

}  // namespace mireval
