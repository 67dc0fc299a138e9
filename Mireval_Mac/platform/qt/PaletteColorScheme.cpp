#include "platform/qt/PaletteColorScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace mireval {
namespace {

bool paletteIsDark() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

}  // namespace

PaletteColorScheme::PaletteColorScheme() : m_dark(paletteIsDark()) {
  qGuiApp->installEventFilter(this);
}

bool PaletteColorScheme::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
    const bool dark = paletteIsDark();
    if (dark != m_dark) {
      m_dark = dark;
      Q_EMIT darkChanged();
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace mireval
