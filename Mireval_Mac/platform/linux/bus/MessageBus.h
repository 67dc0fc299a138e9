#pragma once

#include "platform/linux/bus/BusSocketWatcher.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <systemd/sd-bus.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace mireval {

/// A connection to a message bus, which several services may share. The event loop of the thread that made it
/// serves it. No call waits for the bus, which may be absent, slow, frozen or gone at any time.
///
/// From the first `attach` on, the connection comes back by itself. After a loss it is opened again within a
/// moment, if the bus had accepted it. Otherwise, and where that fails, the folder of the bus's socket is
/// watched for a change; nothing polls. A bus without such a folder (an abstract socket, TCP) has its next
/// chance at `tryAgain`.
class MessageBus final : public QObject {
  Q_OBJECT

 public:
  enum class Kind { session, system };

  struct SlotDeleter {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
  };
  /// Something on a connection: an object, a rule, or the wait for an answer. It ends with the slot; when the
  /// connection is lost, it ends without a further call of its handler.
  using Slot = std::unique_ptr<sd_bus_slot, SlotDeleter>;
  using Slots = std::vector<Slot>;

  struct Method {
    const char* service;
    const char* path;
    const char* interface;
    const char* name;
  };
  /// Whether a call starts a service that does not run.
  enum class Start : std::uint8_t { no, yes };
  /// What becomes of a request for a name that somebody else has.
  enum class IfTaken : std::uint8_t { wait, fail };
  /// Receives a signal or an answer, which may be an error, and the user data that was given with it.
  using Handler = int (*)(sd_bus_message* message, void* userdata, sd_bus_error* error);

  explicit MessageBus(Kind kind);

  /// Keeps the connection open from now on and calls `introduce` for each connection, at once if there is
  /// one. That is the place to register objects, rules and names. The calls end with the service.
  void attach(const QObject* service, const std::function<void()>& introduce);

  /// Looks for the bus again, if it is wanted and away.
  void tryAgain();

  /// True from the beginning of a connection on: what is sent before the bus has answered is delivered later.
  bool isOpen() const { return m_connection != nullptr; }

  // All further calls need an open connection.

  /// The connection's own name on the bus, for example ":1.42". To be called once an answer has arrived:
  /// before that it would wait for the bus.
  QByteArray uniqueName() const;

  /// Offers the table's methods and properties at this path.
  [[nodiscard]] Slot addObject(const char* path, const char* interface, const sd_bus_vtable* table,
                               void* userdata);

  /// Asks the bus for the messages that match the rule.
  [[nodiscard]] Slot listen(const char* rule, Handler handle, void* userdata);

  /// Asks the bus to tell when the owner of a name changes; `nameHasOwner` reads the message.
  [[nodiscard]] Slot listenToOwner(const QByteArray& name, Handler handle, void* userdata);

  /// Asks for a name. The answer is that of org.freedesktop.DBus.RequestName.
  [[nodiscard]] Slot requestName(const QByteArray& name, IfTaken ifTaken, Handler handle = ignoreAnswer,
                                 void* userdata = nullptr);

  /// Gives a name back, or ends the wait for it. May be called without a connection.
  void releaseName(const QByteArray& name);

  /// Calls a method that takes texts. An empty slot if nothing could be sent.
  [[nodiscard]] Slot call(const Method& method, std::initializer_list<const char*> arguments, Start start,
                          Handler handle, void* userdata);

  /// Sends a signal. Types and values are those of sd_bus_message_append.
  template <typename... Values>
  void emitSignal(const char* path, const char* interface, const char* member, const char* types,
                  Values... values) {
    sd_bus_emit_signal(m_connection.get(), path, interface, member, types, values...);
    watch();
  }

  /// Sends PropertiesChanged with the current values of these properties.
  void emitPropertiesChanged(const char* path, const char* interface, std::vector<const char*> names);

 Q_SIGNALS:
  /// A connection has begun.
  void opened();

  /// The connection is gone, with everything that was registered on it.
  void lost();

 private:
  struct ConnectionDeleter {
    // Without a flush, which would wait for a bus that does not read.
    void operator()(sd_bus* connection) const { sd_bus_close_unref(connection); }
  };

  static int ignoreAnswer(sd_bus_message* answer, void* userdata, sd_bus_error* error);

  void connectNow();
  void connectSoon();
  bool open();
  bool watchSocket() { return m_socketWatcher.start(m_kind == Kind::system); }
  void process();
  void watch();
  void close();

  const Kind m_kind;
  bool m_isWanted = false;
  bool m_busHasAccepted = false;
  QTimer m_connectSoon;
  BusSocketWatcher m_socketWatcher;
  std::unique_ptr<sd_bus, ConnectionDeleter> m_connection;
  int m_descriptor = -1;
  std::unique_ptr<QSocketNotifier> m_readable;
  std::unique_ptr<QSocketNotifier> m_writable;
  bool m_processingSoon = false;
};

}  // namespace mireval
