#include "ui/ViewWindow.h"

#include "platform/ColorScheme.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>
#include <QVariantMap>

// Made by the build. Naming them keeps the registration of the QML types and the compiled views, which
// nothing else refers to, in the program. Without those each start would compile the views, and Qt would
// write them to the user's cache.
void qml_register_types_Mireval();
extern int QT_MANGLE_NAMESPACE(qInitResources_qmlcache_mireval_ui)();

namespace mireval {

using namespace Qt::StringLiterals;

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
  connect(rootObject(), &QQuickItem::widthChanged, this, &ViewWindow::fixSize);
  connect(rootObject(), &QQuickItem::heightChanged, this, &ViewWindow::fixSize);
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

void ViewWindow::fixSize() {
  const QSize size = rootObject()->size().toSize();
  setMinimumSize(size);
  setMaximumSize(size);
}

}  // namespace mireval
