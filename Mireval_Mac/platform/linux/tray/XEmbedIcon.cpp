#include "platform/linux/tray/XEmbedIcon.h"

#include "platform/ScreenArea.h"
#include "platform/linux/tray/IconImages.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QScreen>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

QIcon iconFrom(const std::filesystem::path& image) {
  const IconImages images(image);
  QIcon icon;
  // Each drawn for itself, because trays scale a single size without smoothing.
  for (const int side : {16, 22, 24, 32, 48}) {
    icon.addPixmap(QPixmap::fromImage(images.image(side)));
  }
  return icon;
}

}  // namespace

std::unique_ptr<EmbeddedIcon> XEmbedIcon::make(const std::filesystem::path& image) {
  if (QGuiApplication::platformName() != "xcb"_L1) {
    return nullptr;
  }
  return std::unique_ptr<XEmbedIcon>(new XEmbedIcon(image));
}

XEmbedIcon::XEmbedIcon(const std::filesystem::path& image) : m_icon(iconFrom(image)) {
  connect(&m_icon, &QSystemTrayIcon::activated, this, [this] { Q_EMIT activated(place()); });
  m_icon.show();
}

std::optional<QRect> XEmbedIcon::place() const {
  const QRect place = m_icon.geometry();
  const QScreen* const screen = QGuiApplication::screenAt(place.center());
  if (place.isEmpty() || screen == nullptr) {
    return std::nullopt;
  }
  const ScreenArea area{.geometry = screen->geometry(), .scale = screen->devicePixelRatio()};
  return QRect(area.toNative(place.topLeft()), (QSizeF(place.size()) * area.scale).toSize());
}

}  // namespace mireval
