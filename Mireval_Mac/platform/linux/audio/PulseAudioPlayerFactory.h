#pragma once

#include "platform/AudioPlayerFactory.h"

#include <chrono>
#include <memory>

namespace mireval {

class Notices;
class PulseOutput;

/// Plays through the PulseAudio or PipeWire server of the user's session. The players share one connection,
/// one stream and one thread, which live from the first use until the factory and all its players are gone.
class PulseAudioPlayerFactory final : public AudioPlayerFactory {
 public:
  /// The notices must outlive the factory and its players. After `coolDown` an unused stream is kept for
  /// `kept`.
  explicit PulseAudioPlayerFactory(Notices& notices, std::chrono::microseconds kept = std::chrono::minutes(1))
      : m_notices(notices), m_kept(kept) {}

  /// Begins to connect, and to open a stream.
  void warmUp() override;
  void coolDown() override;

  AudioPlayerResult create(const std::filesystem::path& file, const QString& title) override;

 private:
  bool makeOutput();

  Notices& m_notices;
  const std::chrono::microseconds m_kept;
  std::shared_ptr<PulseOutput> m_output;
};

}  // namespace mireval
