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
/// Should the name be another's, it is taken when that one lets go of it. No call waits. After a loss of the
/// bus this connects once more, at once; where that fails, it is not on the bus until it is told to appear
/// anew.
class BusActivation final : public QObject {
  Q_OBJECT

 public:
  enum class StartedBy : std::uint8_t {
    user,
    /// The bus passes on the request for which it has started the application. If it is the plain one, the
    /// start has met it already.
    bus,
  };

  /// `applicationId` is the name of the desktop file without its suffix, and the name on the bus.
  BusActivation(QByteArray applicationId, StartedBy startedBy);
  ~BusActivation() override;

  /// Begins to connect, unless it is connected. Anybody who asks is heard from the time on at which the name
  /// is ours.
  void appear();

 Q_SIGNALS:
  /// Somebody on the desktop asks for this. Emitted while a message is being handled: to be connected in a
  /// queue.
  void requested(mireval::SingleInstance::Request request);

 private:
  /// The callbacks of the bus.
  struct Bus;

  void introduce();
  void request(SingleInstance::Request request, const QByteArray& token);

  const QByteArray m_applicationId;
  const QByteArray m_objectPath;
  /// The bus has yet to pass on why it started the application.
  bool m_isStarting;
  MessageBus m_bus{MessageBus::Kind::session};
};

}  // namespace mireval
