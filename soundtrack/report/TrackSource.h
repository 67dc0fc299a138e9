#pragma once

#include <QString>

#include <filesystem>
#include <optional>

namespace mireval::soundtrack {

/// What a `piece` line says.
struct Piece {
  QString title;
  /// In beats per minute.
  double tempo = 0;
  /// Tonic and scale, with one space between them, for example "Db major".
  QString key;
  int beatsPerBar = 4;
};

/// What the notation of a track tells about it, as far as reports and rules about the whole soundtrack need
/// it. Whether the notation is right in every detail is for the renderer to say.
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
  /// Who is in front: the player of the first `tune` lane; without one, that of the first `keys` lane. Empty
  /// when neither exists.
  QString lead;
  /// What it stands on: the player of the first `wash` lane; without one, that of the first `stab` or `keys`
  /// lane. Empty when none of these exists.
  QString bed;

  static TrackSource parse(const QString& text);

  /// Nothing when the file cannot be read.
  static std::optional<TrackSource> read(const std::filesystem::path& file);
};

}  // namespace mireval::soundtrack
