#pragma once

#include "platform/PointerFinder.h"
#include "platform/linux/windows/InvisibleWindow.h"

#include <QPoint>
#include <QTimer>

namespace mireval {

/// Finds the pointer on a Wayland desktop, with an invisible window on all screens. Xwayland learns the
/// position when the desktop sees the button released: the pointer is above that window from then on.
class XwaylandPointerFinder final : public PointerFinder {
  Q_OBJECT

 public:
  XwaylandPointerFinder();

 private:
  void look();

  InvisibleWindow m_cover;
  InvisibleWindow m_nudge;
  QTimer m_timer;
  QPoint m_wrongPlace;
  int m_looks = 0;
};

}  // namespace mireval
