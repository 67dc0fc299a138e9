#include "library/LocalLibraryProvider.h"

#include "library/Shuffle.h"

#include <QRandomGenerator64>

#include <utility>

namespace mireval {

LocalLibraryProvider::LocalLibraryProvider()
    : LocalLibraryProvider(catalogue(), [] { return QRandomGenerator64::system()->generate(); }) {}

LocalLibraryProvider::LocalLibraryProvider(Catalogue tracks, const std::function<std::uint64_t()>& randomWord)
    : m_sessionTracks(std::move(tracks)) {
  for (auto& [mood, list] : m_sessionTracks) {
    shuffle(list, randomWord);
  }
}

QList<Track> LocalLibraryProvider::playableTracks(Mood mood) const {
  const auto entry = m_sessionTracks.find(mood);
  return entry == m_sessionTracks.end() ? QList<Track>() : entry->second;
}

QList<Track> LocalLibraryProvider::displayEntries(Mood mood) const {
  return playableTracks(mood);
}

}  // namespace mireval
