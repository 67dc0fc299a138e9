#include "platform/linux/instance/SingleInstanceServer.h"

#include <QTimer>

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using Request = SingleInstance::Request;

// Clients send as soon as they have connected. Only so many silent ones are kept.
constexpr std::size_t mostClients = 16;
// Without a pause, a client that cannot be accepted would wake the process again and again.
constexpr auto pauseWithoutDescriptors = 1s;

}  // namespace

struct SingleInstanceServer::Client {
  explicit Client(FileDescriptor accepted)
      : connection(std::move(accepted)),
        readable(std::make_unique<QSocketNotifier>(connection.get(), QSocketNotifier::Read)) {}

  FileDescriptor connection;
  std::unique_ptr<QSocketNotifier> readable;
};

SingleInstanceServer::SingleInstanceServer(const SingleInstance& instance)
    : m_socket(instance.listeningSocket()) {
  if (m_socket >= 0) {
    m_listening.emplace(m_socket, QSocketNotifier::Read);
    connect(&*m_listening, &QSocketNotifier::activated, this, &SingleInstanceServer::accept);
  }
}

SingleInstanceServer::~SingleInstanceServer() = default;

void SingleInstanceServer::accept() {
  FileDescriptor connection(::accept4(m_socket, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  if (!connection.isOpen()) {
    if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
      m_listening->setEnabled(false);
      QTimer::singleShot(pauseWithoutDescriptors, this, [this] { m_listening->setEnabled(true); });
    }
    return;
  }
  if (m_clients.size() == mostClients) {
    m_clients.pop_front();
  }
  const Client& client = *m_clients.emplace_back(std::make_unique<Client>(std::move(connection)));
  connect(client.readable.get(), &QSocketNotifier::activated, this, [this, &client] { receive(client); });
}

void SingleInstanceServer::receive(const Client& client) {
  // One byte more than a request, to recognise longer messages.
  std::array<char, 2> message{};
  const ssize_t length = recv(client.connection.get(), message.data(), message.size(), 0);
  if (length < 0 && (errno == EAGAIN || errno == EINTR)) {
    return;
  }
  const auto place = std::ranges::find(m_clients, &client, &std::unique_ptr<Client>::get);
  const std::unique_ptr<Client> served = std::move(*place);
  m_clients.erase(place);
  // The notifier is the caller, so it must not be destroyed yet.
  served->readable->setEnabled(false);
  served->readable.release()->deleteLater();

  const auto request = static_cast<Request>(message[0]);
  const auto& known = SingleInstance::allRequests;
  if (length == 1 && std::ranges::find(known, request) != known.end()) {
    Q_EMIT requested(request);
    send(served->connection.get(), message.data(), 1, MSG_NOSIGNAL | MSG_DONTWAIT);
  }
}

}  // namespace mireval
