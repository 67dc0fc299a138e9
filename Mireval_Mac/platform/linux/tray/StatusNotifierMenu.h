#pragma once

#include "platform/linux/bus/MessageBus.h"

#include <QObject>

namespace mireval {

/// The menu of a status notifier item, for hosts that show one instead of telling the item about the click.
/// Its only entry is the application's name.
class StatusNotifierMenu final : public QObject {
  Q_OBJECT

 public:
  static constexpr const char* objectPath = "/StatusNotifierMenu";
  static constexpr const char* interface = "com.canonical.dbusmenu";

  /// Offers the menu on an open connection until that is lost.
  void appearOn(MessageBus& bus);

 Q_SIGNALS:
  /// The entry was chosen. Emitted while a message is being handled, so connect it queued.
  void chosen();

 private:
  static const sd_bus_vtable menuTable[];
  int handleEvent(sd_bus_message* call);
  int handleEventGroup(sd_bus_message* call);

  MessageBus::Slot m_object;
};

}  // namespace mireval
