#pragma once

#include "platform/AudioPlayerFactory.h"

#include <memory>

namespace mireval {

class Notices;
class PulseServer;

/// Plays through the PulseAudio or PipeWire server of the user's session. The players share one connection
/// and one thread, which live from the first use until the factory and all its players are gone.
class PulseAudioPlayerFactory final : public AudioPlayerFactory {
 public:
  /// The notices must outlive the factory and its players.
  explicit PulseAudioPlayerFactory(Notices& notices) : m_notices(notices) {}

  /// Begins to connect.
  void warmUp() override;

  AudioPlayerResult create(const std::filesystem::path& file, const QString& title) override;

 private:
  Notices& m_notices;
  std::shared_ptr<PulseServer> m_server;
};

}  // namespace mireval
