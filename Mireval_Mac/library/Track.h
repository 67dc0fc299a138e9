#pragma once

#include "library/Mood.h"
#include "library/TrackAvailability.h"

#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>

namespace mireval {

/// One entry of the catalogue. A plain value; equality and hashing cover all seven fields.
struct Track {
  Q_GADGET
  Q_PROPERTY(QString title MEMBER title CONSTANT)

 public:
  /// A random version-4 UUID: stable while the process runs, never persisted.
  QUuid id;
  Mood mood = Mood::relaxation;
  /// Shown unchanged in every interface language, like `detail`.
  QString title;
  QString detail;
  /// Base name of the audio file, for example "focus-1"; absent when the track has no local file.
  std::optional<QString> resourceName;
  /// Extension of the audio file without the dot, for example "m4a".
  std::optional<QString> fileExtension;
  TrackAvailability availability = TrackAvailability::included();

  friend bool operator==(const Track&, const Track&) = default;
};

}  // namespace mireval

template <>
struct std::hash<mireval::Track> {
  std::size_t operator()(const mireval::Track& track) const noexcept;
};
