#pragma once

#include "library/AudioLibraryProviding.h"
#include "platform/AudioPlayer.h"
#include "platform/RunLoop.h"
#include "playback/CoverImages.h"
#include "playback/PlaybackServices.h"
#include "playback/PlaybackState.h"

#include <cstdint>
#include <memory>

namespace mireval {

/// The playback of the whole application, and the only object that changes its state: it selects modes, holds
/// the player of the current track, and publishes what plays.
///
/// Everything runs on the UI thread. Nothing is thrown: `statusDetail` and one debug line tell of a
/// failed load.
class AudioPlayerController final : public mireval::PlaybackState,  // in full: how QML finds it
                                    public AudioPlayerDelegate,
                                    public std::enable_shared_from_this<AudioPlayerController> {
  Q_OBJECT
  Q_PROPERTY(double volume READ volume WRITE setVolume NOTIFY volumeChanged)

 public:
  AudioPlayerController() = delete;
  ~AudioPlayerController() override;

  /// Makes the controller; touches no service and loads nothing. It is shared so that tasks on their way to
  /// the UI thread can hold it, weakly or strongly.
  static std::shared_ptr<AudioPlayerController> create(std::unique_ptr<AudioLibraryProviding> libraryProvider,
                                                       PlaybackServices services);

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

  /// At the end of a track, on any thread: starts the next one on the UI thread.
  void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) override;

 Q_SIGNALS:
  void volumeChanged();

 private:
  AudioPlayerController(std::unique_ptr<AudioLibraryProviding> libraryProvider, PlaybackServices services);

  void loadCurrentTrack();
  void failLoad(const QString& status, const QString& debugText);
  void prepareInfrastructureIfNeeded();
  void startProgressTimer();
  void updateProgress();
  void advanceAfterFinish();
  void configureRemoteCommands();
  void updateNowPlayingInfo();

  double m_volume = 0.65;

  const std::unique_ptr<AudioLibraryProviding> m_libraryProvider;
  const PlaybackServices m_services;
  const CoverImages m_coverImages;
  std::unique_ptr<AudioPlayer> m_player;
  QList<Track> m_playlist;
  std::int64_t m_currentIndex = 0;
  std::shared_ptr<RepeatingTimer> m_progressTimer;
  bool m_audioSessionPrepared = false;
  bool m_playbackInfrastructureReady = false;
};

}  // namespace mireval
