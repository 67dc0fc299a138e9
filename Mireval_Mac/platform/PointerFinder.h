#pragma once

#include <QObject>
#include <QPoint>

namespace mireval {

/// Finds the place of a click on the icon where the desktop does not tell it. Made by WindowSystem right
/// after the click; searches until it has found the place or is deleted. Lives on the UI thread.
class PointerFinder : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  /// The pointer is at `place`, in the window system's own pixels. Comes once at most. This object must not
  /// be deleted in a direct connection.
  void found(QPoint place);
};

}  // namespace mireval
