#include "platform/linux/windows/LayerDropDown.h"

#include "platform/linux/wayland/WaylandQueue.h"

#include <QEvent>
#include <QPlatformSurfaceEvent>
#include <QScreen>

#include <chrono>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;

}  // namespace

LayerDropDown::LayerDropDown(QWindow& window, LayerShell& shell) : m_window(window), m_shell(shell) {
  m_window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
  m_window.installEventFilter(this);
  // Comes before the surface is gone, which must not outlive its role.
  connect(&m_window, &QWindow::visibleChanged, this, [this](bool visible) {
    if (!visible) {
      endRole();
    }
  });
}

LayerDropDown::~LayerDropDown() = default;

void LayerDropDown::moveTo(QScreen& screen, const QRect& workArea, QPoint position) {
  // Layers are not tied to bars that are no layers.
  const bool barsAreLayers = m_shell.usableSize(screen) != screen.geometry().size();
  m_layerArea = barsAreLayers ? workArea : screen.geometry();
  m_position = position;
  m_window.setScreen(&screen);
  // Only for screen readers: it does not move the window.
  m_window.setPosition(position);
  if (m_role) {
    m_role->place(placement());
  }
}

void LayerDropDown::setShape(const QRegion& pixels, Outside /*outside*/) {
  const QRect bounds = pixels.boundingRect();
  const double scale = m_window.devicePixelRatio();
  m_panel = QRectF(QPointF(bounds.topLeft()) / scale, QSizeF(bounds.size()) / scale).toAlignedRect();
  // For the pointer only, on Wayland.
  m_window.setMask(m_panel);
  if (m_role) {
    cover();
  }
}

LayerSurface::Placement LayerDropDown::placement() const {
  const QRect window(m_position, m_window.size());
  const QMargins margins(window.left() - m_layerArea.left(), window.top() - m_layerArea.top(),
                         m_layerArea.right() - window.right(), m_layerArea.bottom() - window.bottom());
  // The compositor knows the ends of bars better, so the nearer edges count.
  const bool left = margins.left() < margins.right();
  const bool top = margins.top() < margins.bottom();
  return {.edges = (left ? Qt::LeftEdge : Qt::RightEdge) | (top ? Qt::TopEdge : Qt::BottomEdge),
          .margins = margins,
          .size = window.size(),
          .keyboard = m_exclusive ? LayerSurface::Keyboard::exclusive : LayerSurface::Keyboard::none};
}

void LayerDropDown::show() {
  cover();
  // Makes the surface. Qt draws later, so the role is there before the first picture.
  m_window.show();
  const WaylandQueue queue(m_shell.connection());
  m_role = std::make_unique<LayerSurface>(queue.standInFor(m_shell.layers()).get(),
                                          LayerShell::surfaceOf(m_window),
                                          LayerShell::outputOf(*m_window.screen()), placement());
  // Queued, because closing ends the role.
  connect(m_role.get(), &LayerSurface::closed, &m_window, &QWindow::close, Qt::QueuedConnection);
  if (!m_role->waitUntilConfigured(queue, 500ms)) {
    // A picture now would be an error that ends the connection.
    QMetaObject::invokeMethod(&m_window, &QWindow::close, Qt::QueuedConnection);
    endRole();
  }
}

void LayerDropDown::activate() {
  m_window.requestActivate();
}

void LayerDropDown::setExclusive(bool exclusive) {
  if (std::exchange(m_exclusive, exclusive) != exclusive && m_role) {
    m_role->place(placement());
    cover();
  }
}

void LayerDropDown::cover() {
  if (!m_exclusive) {
    m_covers.reset();
    return;
  }
  if (!m_covers) {
    m_covers = ScreenCovers::of(m_shell);
    // Queued, because covers may end.
    connect(m_covers.get(), &ScreenCovers::clicked, this, &DropDown::clickedOutside, Qt::QueuedConnection);
  }
  m_covers->leaveOut(m_panel.translated(m_position));
}

void LayerDropDown::endRole() {
  m_role.reset();
  m_covers.reset();
}

bool LayerDropDown::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::PlatformSurface &&
      static_cast<const QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
          QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
    endRole();
    if (m_window.isVisible()) {
      // Its screen has gone. Qt would show it on another one, where it has no role.
      QMetaObject::invokeMethod(&m_window, &QWindow::close, Qt::QueuedConnection);
    }
  }
  return DropDown::eventFilter(watched, event);
}

}  // namespace mireval
