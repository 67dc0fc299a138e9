#include "ui/PanelWindow.h"

#include "localization/AppLocalization.h"
#include "platform/ColorScheme.h"
#include "playback/AudioPlayerController.h"
#include "ui/PanelPlacement.h"

#include <QGuiApplication>
#include <QPainterPath>
#include <QQmlEngine>
#include <QRegion>
#include <QScreen>
#include <QTimer>

#include <chrono>

// Made by the build. Naming it keeps the registration of the QML types, which nothing else refers to, in the
// program.
void qml_register_types_Mireval();

namespace mireval {
namespace {

using namespace std::chrono_literals;

constexpr qreal cornerRadius = 28;
constexpr auto grabRetryInterval = 30ms;
constexpr int grabAttempts = 40;

Qt::WindowFlags flagsFor(PanelWindow::Style style) {
  if (style == PanelWindow::Style::framed) {
    return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
  }
  // No window manager in between: it would move the window, and some give such a window no keyboard.
  return Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint;
}

}  // namespace

PanelWindow::PanelWindow(Style style, bool blended, AudioPlayerController& audioPlayer,
                         AppLocalization& localization, ColorScheme& colorScheme)
    : m_style(style), m_blended(blended), m_colorScheme(colorScheme) {
  [[maybe_unused]] static const volatile auto keepTypes = &qml_register_types_Mireval;
  setFlags(flagsFor(style));
  setTitle(QGuiApplication::applicationDisplayName());
  fillBackground();
  connect(&colorScheme, &ColorScheme::darkChanged, this, &PanelWindow::fillBackground);
  connect(engine(), &QQmlEngine::quit, this, &PanelWindow::quitRequested);

  // The objects belong to the application: QML must not collect them.
  for (QObject* object : {static_cast<QObject*>(&audioPlayer), static_cast<QObject*>(&localization),
                          static_cast<QObject*>(&colorScheme)}) {
    QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
  }
  engine()->addImportPath(QStringLiteral("qrc:/"));
  setInitialProperties({{QStringLiteral("audioPlayer"), QVariant::fromValue(&audioPlayer)},
                        {QStringLiteral("localization"), QVariant::fromValue(&localization)},
                        {QStringLiteral("colorScheme"), QVariant::fromValue(&colorScheme)}});
  setResizeMode(QQuickView::SizeViewToRootObject);
  setSource(QUrl(QStringLiteral("qrc:/Mireval/MacMenuBarPanelView.qml")));
}

void PanelWindow::open(QPoint click) {
  if (m_style == Style::framed) {
    setMinimumSize(size());
    setMaximumSize(size());
    show();
    return;
  }
  const QScreen* screen = QGuiApplication::screenAt(click);
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  setPosition(panelPosition(click, size(), screen->geometry(), screen->availableGeometry()));
  cutCornersOff();
  show();
  requestActivate();
  // Elsewhere no pointer can be grabbed; losing the focus must do.
  if (QGuiApplication::platformName() == QLatin1String("xcb")) {
    grabPointer(grabAttempts);
  }
}

void PanelWindow::bringToFront() {
  // A framed window may be minimised.
  setWindowStates(windowStates() & ~Qt::WindowMinimized);
  raise();
  requestActivate();
}

void PanelWindow::grabPointer(int attemptsLeft) {
  // The tray that was clicked may still hold the pointer.
  if (isVisible() && !setMouseGrabEnabled(true) && attemptsLeft > 1) {
    QTimer::singleShot(grabRetryInterval, this, [this, attemptsLeft] { grabPointer(attemptsLeft - 1); });
  }
}

void PanelWindow::dismiss(Dismissal how) {
  if (isVisible()) {
    hide();
    Q_EMIT dismissed(how);
  }
}

void PanelWindow::fillBackground() {
  const bool opaque = m_style == Style::framed || !m_blended;
  setColor(!opaque ? Qt::transparent : m_colorScheme.isDark() ? Qt::black : Qt::white);
}

bool PanelWindow::event(QEvent* event) {
  if (event->type() == QEvent::Close) {
    const bool closed = QQuickView::event(event);
    Q_EMIT dismissed(Dismissal::deliberate);
    return closed;
  }
  return QQuickView::event(event);
}

void PanelWindow::focusOutEvent(QFocusEvent* event) {
  QQuickView::focusOutEvent(event);
  if (m_style == Style::dropDown) {
    dismiss(Dismissal::turnedAway);
  }
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (m_style == Style::dropDown && event->key() == Qt::Key_Escape) {
    dismiss(Dismissal::deliberate);
    return;
  }
  QQuickView::keyPressEvent(event);
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  if (m_style == Style::dropDown && !QRect(QPoint(), size()).contains(event->position().toPoint())) {
    m_pressedOutside = true;
    return;
  }
  QQuickView::mousePressEvent(event);
}

void PanelWindow::mouseReleaseEvent(QMouseEvent* event) {
  // Not on the press: a tray acts on the release and, with the pointer free again, would reopen the panel.
  if (m_pressedOutside) {
    m_pressedOutside = false;
    dismiss(Dismissal::turnedAway);
    return;
  }
  QQuickView::mouseReleaseEvent(event);
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
  QQuickView::resizeEvent(event);
  cutCornersOff();
}

void PanelWindow::cutCornersOff() {
  if (m_style == Style::dropDown && !m_blended) {
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(), QSizeF(size())), cornerRadius, cornerRadius);
    setMask(QRegion(shape.toFillPolygon().toPolygon()));
  }
}

}  // namespace mireval
