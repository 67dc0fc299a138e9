#pragma once

#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/instance/SingleInstance.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>

namespace mireval {

/// Offers org.freedesktop.Application of the Desktop Entry Specification on the session bus: the desktop
/// starts the application by its name and sends it the same requests as a later copy does.
///
/// While another process has the name, this one waits until it is released.
class BusActivation final : public QObject {
  Q_OBJECT

 public:
  enum class StartedBy : std::uint8_t {
    user,
    /// The bus has started the application for a request, which it sends next. If that is a plain Activate,
    /// the start itself was the answer.
    bus,
  };

  /// The bus has to outlive it. `applicationId` is the name of the desktop file without its suffix, and the
  /// name on the bus.
  BusActivation(MessageBus& sessionBus, QByteArray applicationId, StartedBy startedBy);
  ~BusActivation() override;

  /// Asks for the name; requests arrive once the application has it. Called once.
  void appear();

 Q_SIGNALS:
  /// Somebody on the desktop asks for this. Emitted while a message is being handled, so connect it queued.
  void requested(mireval::SingleInstance::Request request);

 private:
  static const sd_bus_vtable applicationTable[];
  void activate(sd_bus_message* call);
  int open(sd_bus_message* call);
  int activateAction(sd_bus_message* call);

  void introduce();

  const QByteArray m_applicationId;
  const QByteArray m_objectPath;
  /// The request for which the bus started the application has not come yet.
  bool m_isStarting;
  MessageBus& m_bus;
  MessageBus::Slot m_object;
  MessageBus::Slot m_nameRequest;
};

}  // namespace mireval
