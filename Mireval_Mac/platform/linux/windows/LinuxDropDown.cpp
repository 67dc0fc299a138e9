#include "platform/linux/windows/LinuxDropDown.h"

#include "platform/linux/x11/X11Connection.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QtMath>

#include <chrono>
#include <utility>

namespace mireval {
namespace {

// A grab fails as long as the button is pressed, because the tray holds the pointer, and until the server
// shows the window. After 1.2 seconds both are over.
constexpr auto grabInterval = std::chrono::milliseconds(30);
constexpr int grabAttempts = 40;

}  // namespace

const LinuxDropDown::Kind LinuxDropDown::placedByDesktop{.flags = Qt::Window | Qt::FramelessWindowHint};

const LinuxDropDown::Kind LinuxDropDown::grabbing{
    .flags = Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint,
    // Qt asks as of the last event that it has seen. The server refuses that if another client, as the window
    // manager, has given the keyboard to somebody since.
    .activate =
        [](QWindow& window) {
          if (const auto x11 = X11Connection::forApplication()) {
            x11->giveKeyboardTo(static_cast<xcb_window_t>(window.winId()));
          }
        },
    // Leaves the keyboard alone: grabbing it would swallow the media keys.
    .grab = [](QWindow& window) { return window.setMouseGrabEnabled(true); },
    .release = [](QWindow& window) { window.setMouseGrabEnabled(false); },
};

const LinuxDropDown::Kind LinuxDropDown::managed{
    .flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint,
    .catchesClicks = true,
    .prepare =
        [](QWindow& window) {
          if (const auto x11 = X11Connection::forApplication()) {
            // Qt keeps the atoms of this property that it does not know.
            x11->addAtoms(static_cast<xcb_window_t>(window.winId()), "_NET_WM_STATE",
                          {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
          }
        },
};

const LinuxDropDown::Kind LinuxDropDown::popup{
    .flags = Qt::Popup | Qt::FramelessWindowHint,
    .catchesClicks = true,
    // Qt hides pop-ups from screen readers. An active window keeps the keyboard when it becomes another kind.
    .activated =
        [](QWindow& window) {
          window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        },
    // The desktop gives the X server the keyboard, but does not tell it for which window. This does not take
    // the desktop's own keys, such as the media keys.
    .grab = [](QWindow& window) { return window.setKeyboardGrabEnabled(true); },
    .release = [](QWindow& window) { window.setKeyboardGrabEnabled(false); },
};

LinuxDropDown::LinuxDropDown(QWindow& window, const Kind& kind) : m_window(window), m_kind(kind) {
  m_window.setFlags(kind.flags);
  m_window.installEventFilter(this);
  connect(&m_window, &QWindow::activeChanged, this, [this] {
    if (m_window.isActive()) {
      m_kind.activated(m_window);
    }
  });
  if (kind.catchesClicks) {
    m_catcher = std::make_unique<InvisibleWindow>(QGuiApplication::primaryScreen()->virtualGeometry());
    connect(m_catcher.get(), &InvisibleWindow::clicked, this, &DropDown::clickedOutside);
  }
}

void LinuxDropDown::moveTo(QScreen& screen, const QRect&, QPoint position) {
  // The screen comes first: the position depends on its scale.
  m_window.setScreen(&screen);
  m_window.setPosition(position);
}

void LinuxDropDown::setShape(const QRegion& pixels, Outside outside) {
  m_shape = pixels;
  const double scale = m_window.devicePixelRatio();
  const QRect bounds = pixels.boundingRect();
  const QRect panel =
      QRectF(QPointF(bounds.topLeft()) / scale, QSizeF(bounds.size()) / scale).toAlignedRect();
  if (m_catcher) {
    m_catcher->leaveOut(panel.translated(m_window.position()));
  }
  const auto x11 = X11Connection::forApplication();
  if (!x11) {
    // For the pointer only, on Wayland.
    m_window.setMask(panel);
    return;
  }
  // Not by Qt's masks, which are in device-independent pixels.
  const auto window = static_cast<xcb_window_t>(m_window.winId());
  if (outside == Outside::hidden) {
    x11->setShape(window, pixels);
    return;
  }
  x11->setInputShape(window, pixels);
  // Keeps window managers from adding a shadow of theirs, and from moving the panel to make room for ours.
  const QSize size = m_window.size() * scale;
  x11->setCardinals(window, "_GTK_FRAME_EXTENTS",
                    {static_cast<std::uint32_t>(bounds.left()),
                     static_cast<std::uint32_t>(size.width() - 1 - bounds.right()),
                     static_cast<std::uint32_t>(bounds.top()),
                     static_cast<std::uint32_t>(size.height() - 1 - bounds.bottom())});
}

void LinuxDropDown::show() {
  m_kind.prepare(m_window);
  if (m_catcher) {
    m_catcher->show();
  }
  m_window.show();
  activate();
  grabInput(grabAttempts);
}

void LinuxDropDown::activate() {
  m_kind.activate(m_window);
}

void LinuxDropDown::setExclusive(bool exclusive) {
  if (std::exchange(m_exclusive, exclusive) == exclusive || !m_window.isVisible()) {
    return;
  }
  if (m_catcher) {
    m_catcher->setVisible(exclusive);
  }
  if (exclusive) {
    m_window.raise();
    activate();
    grabInput(grabAttempts);
  } else {
    m_kind.release(m_window);
  }
}

void LinuxDropDown::grabInput(int attemptsLeft) {
  if (m_exclusive && m_window.isVisible() && !m_kind.grab(m_window) && attemptsLeft > 1) {
    QTimer::singleShot(grabInterval, this, [this, attemptsLeft] { grabInput(attemptsLeft - 1); });
  }
}

bool LinuxDropDown::contains(QPointF place) const {
  const QPointF pixel = place * m_window.devicePixelRatio();
  return m_shape.contains(QPoint(qFloor(pixel.x()), qFloor(pixel.y())));
}

bool LinuxDropDown::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      m_pressedOutside = !contains(static_cast<const QMouseEvent*>(event)->position());
      return m_pressedOutside;
    case QEvent::MouseButtonRelease:
      // Not on the press: a tray acts on the release. With the pointer free again, it would reopen the panel.
      if (std::exchange(m_pressedOutside, false)) {
        Q_EMIT clickedOutside();
        return true;
      }
      break;
    case QEvent::Hide:
      if (m_catcher) {
        m_catcher->hide();
      }
      break;
    default:
      break;
  }
  return DropDown::eventFilter(watched, event);
}

}  // namespace mireval
