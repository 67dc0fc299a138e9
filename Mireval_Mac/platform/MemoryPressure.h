#pragma once

#include <QObject>

namespace mireval {

/// Tells when the system is short of memory. Lives and signals on the UI thread.
class MemoryPressure : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  /// The system is short of memory at this moment: what can be had again should be let go. May come again
  /// and again while the shortage lasts, and may never come where the system does not tell.
  void memoryIsShort();
};

}  // namespace mireval
