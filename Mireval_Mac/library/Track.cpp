#include "library/Track.h"

#include <QHashFunctions>

std::size_t std::hash<mireval::Track>::operator()(const mireval::Track& track) const noexcept {
  // Each part is hashed by itself and then combined. With one part's hash as the seed of the next, the flag
  // for a missing text and a text could cancel each other out.
  std::size_t combined = 0;
  const auto add = [&combined](const auto& part) { combined = qHashMulti(combined, part); };
  const auto addOptional = [&add](const std::optional<QString>& text) {
    add(text.has_value());
    if (text) {
      add(*text);
    }
  };
  add(track.id);
  add(mireval::rawValue(track.mood));
  add(track.title);
  add(track.detail);
  addOptional(track.resourceName);
  addOptional(track.fileExtension);
  add(std::hash<mireval::TrackAvailability>{}(track.availability));
  return combined;
}
