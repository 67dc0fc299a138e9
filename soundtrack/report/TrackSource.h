#pragma once

#include <QString>

#include <filesystem>
#include <optional>

namespace mireval::soundtrack {

/// The content of a `piece` line.
struct Piece {
  QString title;
  /// In beats per minute.
  double tempo = 0;
  /// Tonic and scale, with one space between them, for example "Db major".
  QString key;
  int beatsPerBar = 4;
};

/// The part of a track's notation that reports and rules about the whole soundtrack need. The renderer checks
/// the notation itself; this does not.
struct TrackSource {
  int lineCount = 0;
  /// The three parts of the first line, "; Title - mood - what it is". All are empty when it is anything
  /// else.
  QString title;
  QString mood;
  QString description;
  /// Absent when there is no `piece` line, or when it lacks one of title, tempo and key.
  std::optional<Piece> piece;
  /// The chords of the first section, with one space between them; empty when it has none.
  QString firstProgression;
  /// The lead: the player of the first `tune` lane; without one, that of the first `keys` lane. Empty
  /// when neither exists.
  QString lead;
  /// The bed: the player of the first `wash` lane; without one, that of the first `stab` or `keys`
  /// lane. Empty when none of these exists.
  QString bed;

  static TrackSource parse(const QString& text);

  /// Nothing when the file cannot be read.
  static std::optional<TrackSource> read(const std::filesystem::path& file);
};

}  // namespace mireval::soundtrack
