#pragma once

#include <QObject>

namespace mireval {

/// Signals shortages of memory, on the UI thread.
class MemoryPressure : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  /// The system is short of memory now: release what can be loaded again. May repeat while the shortage
  /// lasts, and never comes on systems that do not report it.
  void memoryIsShort();
};

}  // namespace mireval
