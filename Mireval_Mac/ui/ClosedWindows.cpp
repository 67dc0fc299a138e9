#include "ui/ClosedWindows.h"

#include <utility>

namespace mireval {

void ClosedWindows::add(std::unique_ptr<ViewWindow> window) {
  m_windows.push_back(std::move(window));
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_windows.clear();
        Q_EMIT deleted();
      },
      Qt::QueuedConnection);
}

}  // namespace mireval
