#include "platform/linux/tray/XEmbedIcon.h"

#include "platform/ScreenArea.h"
#include "platform/linux/tray/IconImages.h"
#include "platform/linux/x11/X11Connection.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <string>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

QIcon iconFrom(const std::filesystem::path& image) {
  const IconImages images(image);
  QIcon icon;
  // One picture for each size, because trays scale without smoothing.
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
  QCoreApplication::instance()->installNativeEventFilter(this);
  m_icon.show();
}

// Qt 6.8 answers this question only after the session bus has answered, also for an icon that is already
// embedded. The owner of the trays' selection takes the icon soon, as from an older tray that gives it up.
// But a tray may take it without the selection.
bool XEmbedIcon::isPlaced() const {
  const auto x11 = X11Connection::forApplication();
  if (!x11) {
    return false;
  }
  if (x11->selectionHasOwner("_NET_SYSTEM_TRAY_S" + std::to_string(x11->screenNumber()))) {
    return true;
  }
  // The icon and its tool tip are the program's only widgets.
  const QWidgetList icons = QApplication::topLevelWidgets();
  return std::ranges::any_of(icons, [&](const QWidget* icon) {
    const QWindow* const window = icon->windowHandle();
    return window != nullptr && window->handle() != nullptr &&
           x11->isEmbedded(static_cast<xcb_window_t>(window->winId()));
  });
}

bool XEmbedIcon::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type == "xcb_generic_event_t") {
    constexpr unsigned int typeMask = 0x7f;  // The other bit says that a client has sent the event.
    const unsigned int kind = static_cast<const xcb_generic_event_t*>(message)->response_type & typeMask;
    // A new tray sends a message, and embeds the icon. The window of a lost tray is destroyed. Queued,
    // because Qt handles the event after this filter.
    if (kind == XCB_CLIENT_MESSAGE || kind == XCB_REPARENT_NOTIFY || kind == XCB_DESTROY_NOTIFY) {
      QMetaObject::invokeMethod(this, &EmbeddedIcon::placementChanged, Qt::QueuedConnection);
    }
  }
  return false;
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
