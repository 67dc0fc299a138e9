#pragma once

#include "platform/linux/instance/SingleInstance.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <memory>
#include <optional>

namespace mireval {

/// Receives the requests of later copies in the event loop of the thread that created it. Nothing blocks:
/// clients may stay silent, send nonsense or be many.
class SingleInstanceServer final : public QObject {
  Q_OBJECT

 public:
  /// Listens on the socket of `instance`, which must outlive the server. Does nothing if it has none.
  explicit SingleInstanceServer(const SingleInstance& instance);
  ~SingleInstanceServer() override;

 Q_SIGNALS:
  /// A later copy asks for this. The answer is sent when the directly connected slots have returned.
  void requested(mireval::SingleInstance::Request request);

 private:
  struct Client;

  void accept();
  void receive(const Client& client);

  const int m_socket;
  std::optional<QSocketNotifier> m_listening;
  /// The oldest first.
  std::deque<std::unique_ptr<Client>> m_clients;
};

}  // namespace mireval
