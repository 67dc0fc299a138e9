#pragma once

#include "platform/MediaItemArtwork.h"

#include <QString>

#include <optional>

namespace mireval {

/// What the desktop's media controls show of the current track.
struct NowPlayingInfo {
  QString title;
  QString albumTitle;
  QString artist;
  /// As the player states it: may be zero, infinite or NaN.
  double playbackDurationSeconds = 0;
  double elapsedPlaybackSeconds = 0;
  /// 1 while playing, 0 while paused.
  double playbackRate = 0;
  std::optional<MediaItemArtwork> artwork;
};

/// The desktop's media controls, as the place that shows what plays. Used on the UI thread. The information
/// is handed over whole twice a second; what did not change must cost the desktop nothing.
class NowPlayingInfoCenter {
 public:
  virtual ~NowPlayingInfoCenter() = default;

  /// Replaces the information; nothing clears it.
  virtual void setNowPlayingInfo(const std::optional<NowPlayingInfo>& info) = 0;
};

}  // namespace mireval
