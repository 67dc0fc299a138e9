#pragma once

#include <QObject>

struct sd_bus;

namespace mireval {

/// The menu of a status notifier item, for hosts that show one instead of telling the item about the click.
/// Its only entry is the application's name.
class StatusNotifierMenu final : public QObject {
  Q_OBJECT

 public:
  static constexpr const char* objectPath = "/StatusNotifierMenu";

  /// Puts the menu onto a connection, until that is closed.
  void appearOn(sd_bus* connection);

 Q_SIGNALS:
  /// The entry was chosen. Emitted while a message is being handled: to be connected in a queue.
  void chosen();

 private:
  /// The callbacks of the bus.
  struct Bus;
};

}  // namespace mireval
