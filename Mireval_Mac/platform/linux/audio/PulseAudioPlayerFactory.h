#pragma once

#include "platform/AudioPlayerFactory.h"

#include <memory>

namespace mireval {

class PulseServer;

/// Plays through the PulseAudio or PipeWire server of the user's session. The players share one connection
/// and one thread, which live from the first use until the factory and all its players are gone.
class PulseAudioPlayerFactory final : public AudioPlayerFactory {
 public:
  /// Begins to connect.
  void warmUp() override;

  AudioPlayerResult create(const std::filesystem::path& file) override;

 private:
  tl::expected<void, QString> connect();

  std::shared_ptr<PulseServer> m_server;
};

}  // namespace mireval
