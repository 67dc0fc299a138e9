#include "playback/AudioPlayerController.h"

#include "platform/AudioPlayerFactory.h"
#include "platform/DebugOutput.h"
#include "platform/MainThread.h"
#include "platform/NowPlayingInfoCenter.h"
#include "platform/RemoteCommandCenter.h"
#include "platform/ResourceBundle.h"
#include "playback/DebugForm.h"

#include <QtGlobal>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

AudioPlayerController::AudioPlayerController(std::unique_ptr<AudioLibraryProviding> libraryProvider,
                                             PlaybackServices services)
    : m_libraryProvider(std::move(libraryProvider)),
      m_services(services),
      m_coverImages(services.resourceBundle, services.imageDecoder) {
  updateProgress();
}

AudioPlayerController::~AudioPlayerController() = default;

std::shared_ptr<AudioPlayerController> AudioPlayerController::create(
    std::unique_ptr<AudioLibraryProviding> libraryProvider, PlaybackServices services) {
  return std::shared_ptr<AudioPlayerController>(
      new AudioPlayerController(std::move(libraryProvider), services));
}

void AudioPlayerController::selectMood(Mood mood) {
  publish(m_currentMood, std::optional(mood), &AudioPlayerController::currentMoodChanged);
  m_playlist = m_libraryProvider->playableTracks(mood);
  publish(m_playlistTracks, m_playlist, &AudioPlayerController::playlistTracksChanged);
  publish(m_playlistEntries, m_libraryProvider->displayEntries(mood),
          &AudioPlayerController::playlistEntriesChanged);
  m_currentIndex = 0;
  publish(m_statusDetail, u"Connecting %1 atmosphere"_s.arg(title(mood).toLower()),
          &AudioPlayerController::statusDetailChanged);
  loadCurrentTrack();
}

void AudioPlayerController::togglePlayback() {
  if (!m_player) {
    return;
  }
  if (m_player->isPlaying()) {
    m_player->pause();
    publish(m_isPlaying, false, &AudioPlayerController::isPlayingChanged);
    publish(m_statusDetail, u"Paused"_s, &AudioPlayerController::statusDetailChanged);
  } else {
    prepareInfrastructureIfNeeded();
    m_player->play();
    publish(m_isPlaying, true, &AudioPlayerController::isPlayingChanged);
    publish(m_statusDetail, u"Playing"_s, &AudioPlayerController::statusDetailChanged);
  }
  updateNowPlayingInfo();
}

void AudioPlayerController::playNextTrack() {
  if (m_playlist.isEmpty()) {
    return;
  }
  m_currentIndex = (m_currentIndex + 1) % m_playlist.size();
  loadCurrentTrack();
}

void AudioPlayerController::playPreviousTrack() {
  if (m_playlist.isEmpty()) {
    return;
  }
  m_currentIndex = (m_currentIndex - 1 + m_playlist.size()) % m_playlist.size();
  loadCurrentTrack();
}

void AudioPlayerController::setVolume(double volume) {
  publish(m_volume, volume, &AudioPlayerController::volumeChanged);
  if (m_player) {
    m_player->setVolume(static_cast<float>(m_volume));
  }
}

void AudioPlayerController::loadCurrentTrack() {
  if (m_currentIndex < 0 || m_currentIndex >= m_playlist.size()) {
    return;
  }
  const Track track = m_playlist.at(m_currentIndex);
  publish(m_currentTrack, std::optional(track), &AudioPlayerController::currentTrackChanged);
  publish(m_currentVisualIndex, m_currentIndex, &AudioPlayerController::currentVisualIndexChanged);
  publish(m_playlistPositionText,
          u"%1 / %2"_s.arg(m_currentIndex + 1).arg(std::max<qsizetype>(m_playlist.size(), 1)),
          &AudioPlayerController::playlistPositionTextChanged);

  const auto file = track.resourceName && track.fileExtension
                        ? m_services.resourceBundle.urlForResource(*track.resourceName, *track.fileExtension,
                                                                   u"PreviewAudio"_s)
                        : std::nullopt;
  if (!file) {
    failLoad(u"Missing bundled track"_s, u"Missing bundled track "_s + track.title);
    return;
  }
  prepareInfrastructureIfNeeded();

  AudioPlayerResult player = m_services.audioPlayerFactory.create(*file, track.title);
  if (!player) {
    failLoad(u"Playback unavailable"_s, u"Audio playback failed: "_s + player.error());
    return;
  }
  (*player)->setDelegate(this);
  (*player)->setVolume(static_cast<float>(m_volume));
  (*player)->prepareToPlay();
  (*player)->play();
  m_player = *std::move(player);

  publish(m_isPlaying, true, &AudioPlayerController::isPlayingChanged);
  publish(m_statusDetail, u"Playing"_s, &AudioPlayerController::statusDetailChanged);
  startProgressTimer();
  updateProgress();
  updateNowPlayingInfo();
}

void AudioPlayerController::failLoad(const QString& status, const QString& debugText) {
  publish(m_isPlaying, false, &AudioPlayerController::isPlayingChanged);
  publish(m_statusDetail, status, &AudioPlayerController::statusDetailChanged);
  m_services.debugOutput.writeLine(debugForm(debugText));
}

void AudioPlayerController::prepareInfrastructureIfNeeded() {
  if (!m_playbackInfrastructureReady) {
    configureRemoteCommands();
    m_playbackInfrastructureReady = true;
  }
  // A desktop has no audio session to configure; the flag only says that this ran.
  if (!m_audioSessionPrepared) {
    m_audioSessionPrepared = true;
  }
}

void AudioPlayerController::startProgressTimer() {
  using namespace std::chrono_literals;
  if (m_progressTimer) {
    m_progressTimer->invalidate();
    m_progressTimer.reset();
  }
  m_progressTimer = m_services.runLoop.scheduleRepeatingTimer(
      500ms, [weakSelf = weak_from_this(), &mainThread = m_services.mainThread] {
        mainThread.async([weakSelf] {
          if (const auto self = weakSelf.lock()) {
            self->updateProgress();
          }
        });
      });
}

void AudioPlayerController::updateProgress() {
  if (!m_player) {
    publish(m_playbackProgress, 0.0, &AudioPlayerController::playbackProgressChanged);
    publish(m_elapsedTimeText, formatTime(0), &AudioPlayerController::elapsedTimeTextChanged);
    publish(m_durationText, formatTime(0), &AudioPlayerController::durationTextChanged);
    return;
  }
  // Negative values become 0; NaN stays.
  const double duration = std::max(m_player->duration(), 0.0);
  const double position = std::max(m_player->currentTime(), 0.0);
  // In this order a NaN duration compares false, and does not limit the position.
  const double elapsed = duration < position ? duration : position;
  publish(m_playbackProgress, duration > 0 ? elapsed / duration : 0.0,
          &AudioPlayerController::playbackProgressChanged);
  publish(m_elapsedTimeText, formatTime(elapsed), &AudioPlayerController::elapsedTimeTextChanged);
  publish(m_durationText, formatTime(duration), &AudioPlayerController::durationTextChanged);
  updateNowPlayingInfo();
}

QString AudioPlayerController::formatTime(double seconds) {
  if (!std::isfinite(seconds)) {
    return u"0:00"_s;
  }
  const double rounded = std::round(seconds);
  constexpr double limit = 0x1p63;
  if (rounded < -limit || rounded >= limit) {
    qFatal("A time of %g seconds cannot be shown", seconds);
  }
  constexpr std::int64_t secondsPerMinute = 60;
  const auto whole = std::max<std::int64_t>(static_cast<std::int64_t>(rounded), 0);
  return u"%1:%2"_s.arg(whole / secondsPerMinute).arg(whole % secondsPerMinute, 2, 10, QLatin1Char('0'));
}

void AudioPlayerController::audioPlayerDidFinishPlaying(AudioPlayer&, bool) {
  // This thread may not touch the controller's state. The lock fails only while the controller is being
  // destroyed, together with the player that calls.
  if (auto self = weak_from_this().lock()) {
    MainThread& mainThread = m_services.mainThread;
    mainThread.async([self = std::move(self)] { self->advanceAfterFinish(); });
  }
}

void AudioPlayerController::advanceAfterFinish() {
  playNextTrack();
}

void AudioPlayerController::configureRemoteCommands() {
  RemoteCommandCenter& center = m_services.remoteCommandCenter;
  center.playCommand().setEnabled(true);
  center.pauseCommand().setEnabled(true);
  center.togglePlayPauseCommand().setEnabled(true);

  const auto handlerFor = [this](void (*command)(AudioPlayerController&)) -> RemoteCommand::Handler {
    return [weakSelf = weak_from_this(), &mainThread = m_services.mainThread, command] {
      mainThread.async([weakSelf, command] {
        if (const auto self = weakSelf.lock()) {
          command(*self);
        }
      });
      return RemoteCommandHandlerStatus::success;
    };
  };
  center.playCommand().addHandler(handlerFor([](AudioPlayerController& self) {
    if (!self.isPlaying()) {
      self.togglePlayback();
    }
  }));
  center.pauseCommand().addHandler(handlerFor([](AudioPlayerController& self) {
    if (self.isPlaying()) {
      self.togglePlayback();
    }
  }));
  center.togglePlayPauseCommand().addHandler(
      handlerFor([](AudioPlayerController& self) { self.togglePlayback(); }));
}

void AudioPlayerController::updateNowPlayingInfo() {
  if (!m_currentTrack || !m_player) {
    m_services.nowPlayingInfoCenter.setNowPlayingInfo(std::nullopt);
    return;
  }
  NowPlayingInfo info;
  info.title = m_currentTrack->title;
  info.albumTitle = u"Mireval"_s;
  info.artist = u"Mireval \u2022 "_s + title(m_currentTrack->mood);
  info.playbackDurationSeconds = m_player->duration();
  info.elapsedPlaybackSeconds = m_player->currentTime();
  info.playbackRate = m_isPlaying ? 1 : 0;
  const std::int64_t position = std::max<std::int64_t>(m_currentVisualIndex + 1, 1);
  if (const auto cover = m_coverImages.coverImage(m_currentTrack->mood, position)) {
    info.artwork = MediaItemArtwork{.boundsSize = cover->size(),
                                    .requestHandler = [cover = *cover](QSize) { return cover.image(); },
                                    .file = cover->file()};
  }
  m_services.nowPlayingInfoCenter.setNowPlayingInfo(info);
}

}  // namespace mireval
