#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

struct sd_bus;

namespace mireval {

/// A connection to a message bus, served by the event loop of the thread that made it. No call waits for the
/// bus, which may be absent, slow, frozen or gone at any time.
class MessageBus final : public QObject {
  Q_OBJECT

 public:
  enum class Kind { session, system };

  explicit MessageBus(Kind kind);
  ~MessageBus() override;

  /// Begins to connect. What is sent from now on is delivered once the bus has answered; its answers may
  /// take as long as they like. False when there is no bus to connect to.
  bool open();

  bool isOpen() const { return m_connection != nullptr; }

  /// For calls that belong to this connection; nullptr unless it is open. Call `flush` after sending.
  sd_bus* connection() const { return m_connection.get(); }

  /// Sees to it that what has been sent leaves, now or as soon as the bus takes it.
  void flush() { watch(); }

 Q_SIGNALS:
  /// The connection is gone, with everything that was registered on it. It may be opened anew.
  void lost();

 private:
  struct Close {
    void operator()(sd_bus* connection) const;
  };

  void process();
  void watch();
  void close();

  const Kind m_kind;
  std::unique_ptr<sd_bus, Close> m_connection;
  int m_descriptor = -1;
  std::unique_ptr<QSocketNotifier> m_readable;
  std::unique_ptr<QSocketNotifier> m_writable;
  bool m_processingSoon = false;
};

}  // namespace mireval
