#pragma once

#include "platform/AudioPlayer.h"

#include <QString>

#include <tl/expected.hpp>

#include <filesystem>
#include <memory>

namespace mireval {

/// A player, or why there is none.
using AudioPlayerResult = tl::expected<std::unique_ptr<AudioPlayer>, QString>;

/// Makes players. Used on the UI thread.
class AudioPlayerFactory {
 public:
  virtual ~AudioPlayerFactory() = default;

  /// Begins what takes long, without waiting for it, because sound may be wanted soon. Optional.
  virtual void warmUp() {}
  /// Takes `warmUp` back: what was made ready goes again some time after the last sound.
  virtual void coolDown() {}

  /// Opens the file and decodes its beginning; takes a few milliseconds and never waits for the sound
  /// system. Fails with a description when the file is no readable audio file. Without a sound system there
  /// is a player all the same, which waits for one.
  ///
  /// The desktop's mixers may show the title beside the sound's volume.
  virtual AudioPlayerResult create(const std::filesystem::path& file, const QString& title) = 0;
};

}  // namespace mireval
