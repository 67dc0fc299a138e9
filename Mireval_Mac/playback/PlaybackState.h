#pragma once

#include "library/Mood.h"
#include "library/Track.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <optional>
#include <utility>

namespace mireval {

/// What the panel shows about playback: mode, playlist, current track and every text.
///
/// Each write of a property first emits `objectWillChange`, while the old value can still be read, then
/// stores the value and, if it differs, emits that property's own signal. Only the subclass writes. For the
/// UI thread.
class PlaybackState : public QObject {
  Q_OBJECT
  Q_PROPERTY(QVariant currentMood READ currentMoodVariant NOTIFY currentMoodChanged)
  Q_PROPERTY(QVariant currentTrack READ currentTrackVariant NOTIFY currentTrackChanged)
  Q_PROPERTY(QList<mireval::Track> playlistTracks READ playlistTracks NOTIFY playlistTracksChanged)
  Q_PROPERTY(QList<mireval::Track> playlistEntries READ playlistEntries NOTIFY playlistEntriesChanged)
  Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged)
  Q_PROPERTY(QString playlistPositionText READ playlistPositionText NOTIFY playlistPositionTextChanged)
  Q_PROPERTY(QString elapsedTimeText READ elapsedTimeText NOTIFY elapsedTimeTextChanged)
  Q_PROPERTY(QString durationText READ durationText NOTIFY durationTextChanged)
  Q_PROPERTY(double playbackProgress READ playbackProgress NOTIFY playbackProgressChanged)
  Q_PROPERTY(QString statusDetail READ statusDetail NOTIFY statusDetailChanged)
  Q_PROPERTY(qint64 currentVisualIndex READ currentVisualIndex NOTIFY currentVisualIndexChanged)

 public:
  /// The mode last selected.
  std::optional<Mood> currentMood() const { return m_currentMood; }
  /// The track of the last load attempt, even when loading it failed.
  const std::optional<Track>& currentTrack() const { return m_currentTrack; }
  /// The tracks that are played for the mode, in play order.
  const QList<Track>& playlistTracks() const { return m_playlistTracks; }
  /// The tracks that are listed for the mode.
  const QList<Track>& playlistEntries() const { return m_playlistEntries; }
  /// True from a successful start or resumption until a pause or a failed load.
  bool isPlaying() const { return m_isPlaying; }
  /// 1-based position and count, for example "2 / 16".
  const QString& playlistPositionText() const { return m_playlistPositionText; }
  /// Elapsed time and duration as minutes:seconds.
  const QString& elapsedTimeText() const { return m_elapsedTimeText; }
  const QString& durationText() const { return m_durationText; }
  /// Elapsed time as a share of the duration, 0...1.
  double playbackProgress() const { return m_playbackProgress; }
  /// One English line about the state, for example "Playing"; it does not follow the interface language.
  const QString& statusDetail() const { return m_statusDetail; }
  /// 0-based playlist position of the last load attempt; selects the cover.
  std::int64_t currentVisualIndex() const { return m_currentVisualIndex; }

 Q_SIGNALS:
  /// A property is about to be written.
  void objectWillChange();

  void currentMoodChanged();
  void currentTrackChanged();
  void playlistTracksChanged();
  void playlistEntriesChanged();
  void isPlayingChanged();
  void playlistPositionTextChanged();
  void elapsedTimeTextChanged();
  void durationTextChanged();
  void playbackProgressChanged();
  void statusDetailChanged();
  void currentVisualIndexChanged();

 protected:
  /// Writes a property. `changed` is its own signal.
  template <typename Self, typename Value>
  void publish(Value& stored, Value value, void (Self::*changed)()) {
    Q_EMIT objectWillChange();
    if (stored != value) {
      stored = std::move(value);
      Q_EMIT(static_cast<Self*>(this)->*changed)();
    }
  }

  std::optional<Mood> m_currentMood;
  std::optional<Track> m_currentTrack;
  QList<Track> m_playlistTracks;
  QList<Track> m_playlistEntries;
  bool m_isPlaying = false;
  QString m_playlistPositionText = QStringLiteral("1 / 3");
  QString m_elapsedTimeText = QStringLiteral("0:00");
  QString m_durationText = QStringLiteral("0:00");
  double m_playbackProgress = 0;
  QString m_statusDetail = QStringLiteral("Ready");
  std::int64_t m_currentVisualIndex = 0;

 private:
  QVariant currentMoodVariant() const;
  QVariant currentTrackVariant() const;
};

}  // namespace mireval
