#pragma once

#include "platform/NowPlayingInfoCenter.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace mireval {

/// What a media player says on the bus about its current track (the metadata of MPRIS 2.2).
struct MprisMetadata {
  MprisMetadata() = default;
  explicit MprisMetadata(const NowPlayingInfo& info);

  /// True if both describe the same track, whatever else differs.
  bool isSameTrack(const MprisMetadata& other) const;

  /// mpris:trackid: a valid object path, the same whenever the same title by the same artist plays.
  QByteArray trackId() const;

  /// mpris:artUrl: a file URL with every unusual byte escaped; empty without a picture.
  QByteArray artUrl() const;

  QString title;
  QString albumTitle;
  QString artist;
  /// Microseconds; nothing when the length is not known.
  std::optional<std::int64_t> length;
  std::filesystem::path artFile;

  friend bool operator==(const MprisMetadata&, const MprisMetadata&) = default;
};

/// Seconds as whole microseconds, never negative; nothing if they are not a number, or too many.
std::optional<std::int64_t> toMicroseconds(double seconds);

}  // namespace mireval
