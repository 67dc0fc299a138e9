#pragma once

#include <QByteArray>
#include <QPoint>

#include <optional>

namespace mireval {

/// How a program that shows status notifier items differs from others. The programs that are named here were
/// observed; any other one gets what is safe everywhere.
class TrayHost {
 public:
  /// `process` is the name of the process that owns the watcher's name on the bus, as the kernel keeps it
  /// (the first fifteen bytes); empty when it is not known.
  explicit TrayHost(QByteArray process = {});

  /// Whether an item has to offer a menu here, so that each kind of click leads to the item.
  bool needsMenu() const;

  /// Positions are in the window system's own pixels.
  struct Click {
    /// What the host said along with the click.
    std::optional<QPoint> told;
    /// Where the pointer is, if the window system knows.
    std::optional<QPoint> pointer;
  };

  /// Where the icon was clicked; nothing when that cannot be known.
  std::optional<QPoint> placeOf(const Click& click) const;

 private:
  QByteArray m_process;
};

}  // namespace mireval
