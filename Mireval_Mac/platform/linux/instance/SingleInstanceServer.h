#pragma once

#include "platform/linux/instance/SingleInstance.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <memory>
#include <optional>

namespace mireval {

/// Takes the requests of later copies on the event loop of the thread that made it. Nothing waits for them:
/// clients may be silent, talk nonsense or be many.
class SingleInstanceServer final : public QObject {
  Q_OBJECT

 public:
  /// Listens on the socket of `instance`, which must outlive the server; does nothing if that has none.
  explicit SingleInstanceServer(const SingleInstance& instance);
  ~SingleInstanceServer() override;

 Q_SIGNALS:
  /// A later copy asks for this. It is answered when the slots that are called directly have returned.
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
