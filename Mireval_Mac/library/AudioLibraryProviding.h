#pragma once

#include "library/Track.h"

#include <QList>

namespace mireval {

/// A source of tracks. Both queries change nothing, may be called at any time on the UI thread, and answer
/// the same for the same mood as long as the provider lives.
class AudioLibraryProviding {
 public:
  virtual ~AudioLibraryProviding() = default;

  /// The tracks that are played for the mood, in play order; possibly none.
  virtual QList<Track> playableTracks(Mood mood) const = 0;

  /// The tracks that are listed for the mood; possibly none.
  virtual QList<Track> displayEntries(Mood mood) const = 0;
};

}  // namespace mireval
