#pragma once

#include "ui/ViewWindow.h"

#include <QObject>

#include <memory>
#include <vector>

namespace mireval {

/// Takes windows that may have been closed from inside their own event handlers. The event loop deletes them
/// soon, this object at the latest. Lives on the UI thread.
class ClosedWindows final : public QObject {
  Q_OBJECT

 public:
  void add(std::unique_ptr<ViewWindow> window);

 Q_SIGNALS:
  /// The windows are gone, with all that they held.
  void deleted();

 private:
  std::vector<std::unique_ptr<ViewWindow>> m_windows;
};

}  // namespace mireval
