#include "platform/linux/media/MprisMetadata.h"

#include <QCryptographicHash>

#include <algorithm>
#include <cmath>
#include <system_error>

namespace mireval {
namespace {

namespace fs = std::filesystem;

std::optional<std::int64_t> lengthOf(double seconds) {
  const auto length = toMicroseconds(seconds);
  return length && *length > 0 ? length : std::nullopt;
}

fs::path artFileOf(const std::optional<MediaItemArtwork>& artwork) {
  if (!artwork || artwork->file.empty()) {
    return {};
  }
  std::error_code error;
  return fs::absolute(artwork->file, error);
}

}  // namespace

MprisMetadata::MprisMetadata(const NowPlayingInfo& info)
    : title(info.title),
      albumTitle(info.albumTitle),
      artist(info.artist),
      length(lengthOf(info.playbackDurationSeconds)),
      artFile(artFileOf(info.artwork)) {}

bool MprisMetadata::isSameTrack(const MprisMetadata& other) const {
  return title == other.title && artist == other.artist && albumTitle == other.albumTitle;
}

QByteArray MprisMetadata::trackId() const {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  for (const QString& text : {artist, albumTitle, title}) {
    hash.addData(text.toUtf8());
    hash.addData(QByteArrayView("\0", 1));
  }
  return "/mireval/track/" + hash.result().toHex();
}

QByteArray MprisMetadata::artUrl() const {
  return artFile.empty() ? QByteArray()
                         : "file://" + QByteArray::fromStdString(artFile.string()).toPercentEncoding("/");
}

std::optional<std::int64_t> toMicroseconds(double seconds) {
  constexpr double perSecond = 1e6;
  constexpr double limit = 0x1p63;
  const double value = std::round(std::max(seconds, 0.0) * perSecond);
  return std::isfinite(seconds) && value < limit ? std::optional(static_cast<std::int64_t>(value))
                                                 : std::nullopt;
}

}  // namespace mireval
