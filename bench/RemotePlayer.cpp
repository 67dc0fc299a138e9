#include "RemotePlayer.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <utility>

namespace mireval::bench {

using namespace std::chrono_literals;

RemotePlayer::RemotePlayer(Description description, const test::SoundServer& server)
    : m_description(std::move(description)), m_process(m_description.command, server.environment()) {
  connect();
  send(m_description.setUp);
}

RemotePlayer::~RemotePlayer() {
  close(m_socket);
}

void RemotePlayer::connect() {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, m_description.socket.c_str(), sizeof(address.sun_path) - 1);
  const auto giveUp = std::chrono::steady_clock::now() + 10s;
  while (std::chrono::steady_clock::now() < giveUp) {
    m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
      return;
    }
    close(m_socket);
    std::this_thread::sleep_for(20ms);
  }
  throw std::runtime_error(name() + " does not answer");
}

void RemotePlayer::send(const std::vector<std::string>& lines) const {
  // Reads the answers, so that the player never blocks on a full socket.
  std::array<char, 4096> answers{};
  while (recv(m_socket, answers.data(), answers.size(), MSG_DONTWAIT) > 0) {
  }
  for (const std::string& line : lines) {
    const std::string text = line + "\n";
    if (write(m_socket, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
      throw std::runtime_error(name() + " is gone");
    }
  }
}

}  // namespace mireval::bench
