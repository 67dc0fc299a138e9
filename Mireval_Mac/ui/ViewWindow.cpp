#include "ui/ViewWindow.h"

#include "platform/ColorScheme.h"
#include "platform/Notices.h"
#include "platform/WindowSystem.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTimer>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <utility>

// Made by the build. Naming them keeps the registration of the QML types and the compiled views, which
// nothing else refers to, in the program. Without those each start would compile the views, and Qt would
// write them to the user's cache.
void qml_register_types_Mireval();
extern int QT_MANGLE_NAMESPACE(qInitResources_qmlcache_mireval_ui)();

namespace mireval {

using namespace Qt::StringLiterals;

namespace {

// A window manager answers within milliseconds; a tiling one may never agree.
constexpr auto patience = std::chrono::seconds(1);

/// Positions the items now instead of in the middle of drawing a frame, which could not be held back any
/// more.
void layOut(QQuickItem& item) {
  const QList<QQuickItem*> children = item.childItems();
  for (QQuickItem* const child : children) {
    layOut(*child);
  }
  item.ensurePolished();
}

}  // namespace

bool ViewWindow::canOpen(const WindowSystem& windowSystem, Notices& notices) {
  const bool canOpen = windowSystem.hasRoomForWindow();
  if (!canOpen) {
    notices.say("too many files are open; no window can be opened");
  }
  return canOpen;
}

ViewWindow::ViewWindow(const QString& view, Properties properties) {
  [[maybe_unused]] static const volatile auto keepTypes = &qml_register_types_Mireval;
  [[maybe_unused]] static const volatile auto keepViews =
      &QT_MANGLE_NAMESPACE(qInitResources_qmlcache_mireval_ui);
  setTitle(QGuiApplication::applicationDisplayName());
  QVariantMap values;
  for (const auto& [name, object] : properties) {
    // The objects belong to the application: QML must not collect them.
    QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
    values.insert(name, QVariant::fromValue(object));
  }
  engine()->addImportPath(u"qrc:/"_s);
  setInitialProperties(values);
  setResizeMode(QQuickView::SizeViewToRootObject);
  setSource(QUrl(u"qrc:/Mireval/"_s + view));
  fixSize();
  // Window managers hold a window to its limits, also when the texts of another language need more room.
  const auto fixUnlessDrawn = [this] {
    if (!isExposed()) {
      fixSize();
    }
  };
  connect(rootObject(), &QQuickItem::widthChanged, this, fixUnlessDrawn);
  connect(rootObject(), &QQuickItem::heightChanged, this, fixUnlessDrawn);
}

bool ViewWindow::event(QEvent* event) {
  const bool isTooEarly = event->type() == QEvent::UpdateRequest && !isReadyToDraw();
  // The server may expose the new part before it tells the new size.
  const bool isExposedTooEarly = event->type() == QEvent::Expose && isExposed() && m_waitsForSize;
  if (isTooEarly || isExposedTooEarly) {
    return true;
  }
  const bool handled = QQuickView::event(event);
  if (event->type() == QEvent::UpdateRequest) {
    fixSize();
  } else if (event->type() == QEvent::Resize) {
    m_grantedSize = static_cast<const QResizeEvent*>(event)->size();
    if (m_grantedSize == viewSize() && std::exchange(m_waitsForSize, false)) {
      // At once: until then the window shows the old view.
      QEvent update(QEvent::UpdateRequest);
      QQuickView::event(&update);
    }
  }
  return handled;
}

void ViewWindow::bringToFront() {
  setWindowStates(windowStates() & ~Qt::WindowMinimized);
  raise();
  requestActivate();
}

void ViewWindow::setFramed(const std::filesystem::path& icon) {
  setFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  setIcon(QIcon(QFile::decodeName(icon.c_str())));
}

void ViewWindow::setGround(const ColorScheme& colorScheme, const QColor& light, const QColor& dark) {
  const auto fill = [this, &colorScheme, light, dark] { setColor(colorScheme.isDark() ? dark : light); };
  fill();
  connect(&colorScheme, &ColorScheme::darkChanged, this, fill);
}

QSize ViewWindow::viewSize() const {
  return rootObject()->size().toSize();
}

bool ViewWindow::isReadyToDraw() {
  layOut(*rootObject());
  const QSize wanted = viewSize();
  // The first frame follows the first size.
  const bool grows = m_grantedSize.isValid() &&
                     (wanted.width() > m_grantedSize.width() || wanted.height() > m_grantedSize.height());
  if (grows && wanted != m_refusedSize) {
    waitForSize(wanted);
    fixSize();
    return !m_waitsForSize;
  }
  if (wanted != m_grantedSize) {
    prepareSmallerFrame();
  }
  return true;
}

void ViewWindow::waitForSize(const QSize& wanted) {
  if (std::exchange(m_waitsForSize, true)) {
    return;
  }
  QTimer::singleShot(patience, this, [this, wanted] {
    if (std::exchange(m_waitsForSize, false)) {
      m_refusedSize = wanted;
      requestUpdate();
    }
  });
}

void ViewWindow::fixSize() {
  const QSize size = viewSize();
  setMinimumSize(size);
  setMaximumSize(size);
}

}  // namespace mireval
