#include "library/Track.h"

#include <QHashFunctions>

namespace {

std::size_t hashOfOptional(const std::optional<QString>& text, std::size_t seed) {
  const std::size_t presence = qHash(text.has_value(), seed);
  return text ? qHash(*text, presence) : presence;
}

}  // namespace

std::size_t std::hash<mireval::Track>::operator()(const mireval::Track& track) const noexcept {
  std::size_t seed = qHash(track.id);
  seed = qHash(mireval::rawValue(track.mood), seed);
  seed = qHash(track.title, seed);
  seed = qHash(track.detail, seed);
  seed = hashOfOptional(track.resourceName, seed);
  seed = hashOfOptional(track.fileExtension, seed);
  return qHashMulti(seed, std::hash<mireval::TrackAvailability>{}(track.availability));
}
