#pragma once

#include "platform/AudioPlayer.h"

#include <QString>

#include <filesystem>
#include <memory>

namespace mireval {

/// A player, or, when there is none, why.
struct AudioPlayerResult {
  std::unique_ptr<AudioPlayer> player;
  QString error;
};

/// Makes players. Used on the UI thread.
class AudioPlayerFactory {
 public:
  virtual ~AudioPlayerFactory() = default;

  /// Says that sound will be wanted soon: what takes long may be begun now, without waiting for it. Optional.
  virtual void warmUp() {}

  /// Opens the file and decodes its beginning; takes a few milliseconds and never waits for the sound
  /// system. Fails with a description when the file is no readable audio file or when there is no sound
  /// system.
  virtual AudioPlayerResult create(const std::filesystem::path& file) = 0;
};

}  // namespace mireval
