#pragma once

#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/instance/SingleInstance.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>

namespace mireval {

/// Lets the desktop start the application, and ask it for what a later copy may ask for, by its name on the
/// session bus, as the Desktop Entry Specification describes it.
///
/// A name that somebody else has is taken as soon as its owner releases it.
class BusActivation final : public QObject {
  Q_OBJECT

 public:
  enum class StartedBy : std::uint8_t {
    user,
    /// The bus has started the application for a request and passes that on. The start itself has met a plain
    /// request already.
    bus,
  };

  /// The bus has to outlive it. `applicationId` is the name of the desktop file without its suffix, and the
  /// name on the bus.
  BusActivation(MessageBus& sessionBus, QByteArray applicationId, StartedBy startedBy);
  ~BusActivation() override;

  /// Asks for the name; requests arrive from the time on at which it is ours. Called once.
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
  void request(SingleInstance::Request request, const QByteArray& token);

  const QByteArray m_applicationId;
  const QByteArray m_objectPath;
  /// The bus has not yet passed on why it started the application.
  bool m_isStarting;
  MessageBus& m_bus;
  MessageBus::Slot m_object;
  MessageBus::Slot m_nameRequest;
};

}  // namespace mireval
