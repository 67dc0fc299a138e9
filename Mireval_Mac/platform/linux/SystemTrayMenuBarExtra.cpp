#include "platform/linux/SystemTrayMenuBarExtra.h"

#include <QCoreApplication>
#include <QCursor>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QTimer>

#include <chrono>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;

// Session start: panels come up after the applications that they show.
constexpr auto timeForBarToStart = 2s;

QIcon iconFrom(const std::filesystem::path& image) {
  const QPixmap drawing(QFile::decodeName(image.c_str()));
  QIcon icon;
  // Scaled here because trays scale a single size without smoothing.
  for (const int size : {16, 22, 24, 32, 48}) {
    icon.addPixmap(drawing.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  }
  return icon;
}

}  // namespace

SystemTrayMenuBarExtra::SystemTrayMenuBarExtra() = default;

void SystemTrayMenuBarExtra::show(const std::filesystem::path& image, Handlers handlers) {
  QObject::connect(&m_icon, &QSystemTrayIcon::activated, &m_icon,
                   [this, activated = handlers.activated](QSystemTrayIcon::ActivationReason reason) {
                     // The second click of a double click counts like the first: it closes again.
                     if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                       const QRect place = m_icon.geometry();
                       activated(place.isValid() ? place : QRect(QCursor::pos(), QSize(1, 1)));
                     }
                   });
  m_icon.setIcon(iconFrom(image));
  m_icon.setToolTip(QCoreApplication::applicationName());
  m_icon.show();
  if (!isPlaced()) {
    QTimer::singleShot(timeForBarToStart, &m_icon, [this, missing = handlers.missing] {
      if (!isPlaced()) {
        missing();
      }
    });
  }
}

void SystemTrayMenuBarExtra::setToolTip(const QString& text) {
  m_icon.setToolTip(QCoreApplication::applicationName() + QLatin1Char('\n') + text);
}

bool SystemTrayMenuBarExtra::isPlaced() const {
  return QSystemTrayIcon::isSystemTrayAvailable();
}

}  // namespace mireval
