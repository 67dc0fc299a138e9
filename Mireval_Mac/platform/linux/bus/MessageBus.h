#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <systemd/sd-bus.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace mireval {

/// A connection to a message bus, served by the event loop of the thread that made it. No call waits for the
/// bus, which may be absent, slow, frozen or gone at any time.
class MessageBus final : public QObject {
  Q_OBJECT

 public:
  enum class Kind { session, system };

  struct DropSlot {
    void operator()(sd_bus_slot* slot) const;
  };
  /// An object on the connection, or the wait for an answer, which ends with the slot.
  using Slot = std::unique_ptr<sd_bus_slot, DropSlot>;

  struct Method {
    const char* service;
    const char* path;
    const char* interface;
    const char* name;
  };
  /// Whether a call starts a service that does not run.
  enum class Start : std::uint8_t { no, yes };
  using AnswerHandler = int (*)(sd_bus_message* answer, void* userdata, sd_bus_error* error);

  explicit MessageBus(Kind kind);
  ~MessageBus() override;

  /// Begins to connect. What is sent from now on is delivered once the bus has answered; its answers may
  /// take as long as they like. False when there is no bus to connect to.
  bool open();

  /// Opens, now and again at once whenever the connection is lost, as long as the bus lets this connection
  /// listen or ask for a name: one that never has would only do the same again. False when there is no bus to
  /// connect to now.
  bool keepOpen();

  bool isOpen() const { return m_connection != nullptr; }

  /// For calls that belong to this connection; nullptr unless it is open. Call `flush` after sending.
  sd_bus* connection() const { return m_connection.get(); }

  /// Asks the bus for the messages that match the rule; each is handed over until the connection is lost. To
  /// be called while it is open; call `flush` after it.
  void listen(const char* rule, std::function<void(sd_bus_message* message)> handle);

  /// Asks for a name, and waits in its queue while it is another's. To be called while the connection is
  /// open; call `flush` after it.
  void requestName(const char* name);

  /// Calls a method that takes texts. The answer, which may be an error, is handed over with the user data;
  /// not once the slot has gone. To be called while the connection is open. An empty slot if nothing could be
  /// sent.
  [[nodiscard]] Slot call(const Method& method, std::initializer_list<const char*> arguments, Start start,
                          AnswerHandler handle, void* userdata);

  /// Sees to it that what has been sent leaves, now or as soon as the bus takes it.
  void flush() { watch(); }

 Q_SIGNALS:
  /// There is a connection to listen and to register on. Emitted by `keepOpen` and after it.
  void opened();

  /// The connection is gone, with everything that was registered on it. It may be opened anew.
  void lost();

 private:
  struct Close {
    void operator()(sd_bus* connection) const;
  };
  struct Listener;

  /// Of a request of our own to the bus itself.
  static int handleBusReply(sd_bus_message* reply, void* userdata, sd_bus_error* error);

  void process();
  void watch();
  void close();

  const Kind m_kind;
  bool m_keepsOpen = false;
  bool m_isWelcome = false;
  std::vector<std::unique_ptr<Listener>> m_listeners;
  std::unique_ptr<sd_bus, Close> m_connection;
  int m_descriptor = -1;
  std::unique_ptr<QSocketNotifier> m_readable;
  std::unique_ptr<QSocketNotifier> m_writable;
  bool m_processingSoon = false;
};

}  // namespace mireval
