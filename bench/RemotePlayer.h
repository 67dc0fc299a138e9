#pragma once

#include "Player.h"

#include "ChildProcess.h"
#include "SoundServer.h"

#include <filesystem>
#include <string>
#include <vector>

namespace mireval::bench {

/// A player in a process of its own that takes commands, a line each, through a socket.
class RemotePlayer final : public Player {
 public:
  struct Description {
    std::string name;
    std::vector<std::string> command;
    /// Where the player listens once it runs.
    std::filesystem::path socket;
    /// What it is told once.
    std::vector<std::string> setUp;
    std::vector<std::string> play;
    std::vector<std::string> stop;
  };

  /// Starts the player. Throws when it does not listen within ten seconds.
  RemotePlayer(Description description, const test::SoundServer& server);
  RemotePlayer(const RemotePlayer&) = delete;
  RemotePlayer& operator=(const RemotePlayer&) = delete;
  ~RemotePlayer() override;

  std::string name() const override { return m_description.name; }
  void play() override { send(m_description.play); }
  void stop() override { send(m_description.stop); }

 private:
  void connect();
  void send(const std::vector<std::string>& lines) const;

  const Description m_description;
  const test::ChildProcess m_process;
  int m_socket = -1;
};

}  // namespace mireval::bench
