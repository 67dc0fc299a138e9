#pragma once

#include "library/AudioLibraryProviding.h"
#include "library/Catalogue.h"

#include <cstdint>
#include <functional>

namespace mireval {

/// Serves the catalogue. Draws a random order for each mood when it is made and keeps it.
class LocalLibraryProvider final : public AudioLibraryProviding {
 public:
  /// Shuffles the shipped catalogue with the operating system's secure random source.
  LocalLibraryProvider();

  /// Shuffles `tracks` with words from `randomWord`.
  LocalLibraryProvider(Catalogue tracks, const std::function<std::uint64_t()>& randomWord);

  QList<Track> playableTracks(Mood mood) const override;

  /// The same list as `playableTracks`.
  QList<Track> displayEntries(Mood mood) const override;

 private:
  Catalogue m_sessionTracks;
};

}  // namespace mireval
