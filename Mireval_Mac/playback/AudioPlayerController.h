#pragma once

#include "library/AudioLibraryProviding.h"
#include "library/Mood.h"
#include "library/Track.h"
#include "platform/AudioPlayer.h"
#include "platform/RunLoop.h"
#include "playback/ImageCache.h"
#include "playback/PlaybackServices.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace mireval {

/// The playback state of the whole application, and the only object that changes it: the mode, its playlist,
/// the player of the current track, and every text that the panel shows about playback.
///
/// Everything runs on the UI thread. Each write of a property first emits `objectWillChange`, while the old
/// value can still be read, then stores the value and, if it differs, emits that property's own signal.
/// Nothing is thrown: `statusDetail` and one debug line report a failed load.
class AudioPlayerController final : public QObject,
                                    public AudioPlayerDelegate,
                                    public std::enable_shared_from_this<AudioPlayerController> {
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
  Q_PROPERTY(double volume READ volume WRITE setVolume NOTIFY volumeChanged)

 public:
  AudioPlayerController() = delete;
  ~AudioPlayerController() override;

  /// Makes the controller; touches no service and loads nothing. It is shared so that tasks on their way to
  /// the UI thread can hold it, weakly or strongly.
  static std::shared_ptr<AudioPlayerController> create(std::unique_ptr<AudioLibraryProviding> libraryProvider,
                                                       PlaybackServices services);

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
  /// Linear output gain, 0...1. Not persisted.
  double volume() const { return m_volume; }

  /// Makes the mood's tracks the playlist and starts the first, also when the mood is already current.
  Q_INVOKABLE void selectMood(mireval::Mood mood);

  /// Pauses a player that plays, resumes it otherwise. Does nothing before the first successful load.
  Q_INVOKABLE void togglePlayback();

  /// Loads and starts the next or previous track; after the last comes the first. Does nothing when the
  /// playlist is empty.
  Q_INVOKABLE void playNextTrack();
  Q_INVOKABLE void playPreviousTrack();

  /// Stores the volume and applies it to the current player.
  void setVolume(double volume);

  /// Seconds as minutes and two-digit seconds ("75:04"), rounded to the nearest second, halves away from
  /// zero; negative, infinite and NaN values give "0:00". Aborts when the value does not fit 64 bits.
  static QString formatTime(double seconds);

  /// The covers decoded so far, by cover image name: one cache for the process, made on first use. Callable
  /// on any thread.
  static ImageCache& coverImageCache();

  /// At the end of a track, on any thread: starts the next one on the UI thread.
  void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) override;

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
  void volumeChanged();

 private:
  AudioPlayerController(std::unique_ptr<AudioLibraryProviding> libraryProvider, PlaybackServices services);

  QVariant currentMoodVariant() const;
  QVariant currentTrackVariant() const;

  template <typename Value>
  void publish(Value& stored, Value value, void (AudioPlayerController::*changed)());

  void loadCurrentTrack();
  void failLoad(const QString& status, const QString& debugText);
  void prepareInfrastructureIfNeeded();
  void startProgressTimer();
  void updateProgress();
  void advanceAfterFinish();
  void configureRemoteCommands();
  void updateNowPlayingInfo();
  std::optional<CoverImage> coverImage(Mood mood, std::int64_t position);
  QImage downsampledImage(const std::filesystem::path& file, double maxPixelSize);

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
  double m_volume = 0.65;

  const std::unique_ptr<AudioLibraryProviding> m_libraryProvider;
  const PlaybackServices m_services;
  std::unique_ptr<AudioPlayer> m_player;
  QList<Track> m_playlist;
  std::int64_t m_currentIndex = 0;
  std::shared_ptr<RepeatingTimer> m_progressTimer;
  bool m_audioSessionPrepared = false;
  bool m_playbackInfrastructureReady = false;
};

}  // namespace mireval
