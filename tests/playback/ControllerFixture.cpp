#include "playback/ControllerFixture.h"

#include "playback/CoverImages.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

ControllerFixture::ControllerFixture() {
  // It serves the whole process, and so the tests before this one.
  CoverImages::coverImageCache().removeAll();
  auto provider = std::make_unique<FakeLibraryProvider>(m_log);
  m_provider = provider.get();
  m_controller = AudioPlayerController::create(std::move(provider), services());
}

PlaybackServices ControllerFixture::services() {
  return {.resourceBundle = m_bundle,
          .audioPlayerFactory = m_factory,
          .runLoop = m_runLoop,
          .mainThread = m_mainThread,
          .remoteCommandCenter = m_remote,
          .nowPlayingInfoCenter = m_nowPlaying,
          .imageDecoder = m_decoder,
          .debugOutput = m_debug};
}

Track ControllerFixture::makeTrack(Mood mood, int number) {
  Track track;
  track.id = QUuid::createUuid();
  track.mood = mood;
  track.title = u"%1 title %2"_s.arg(rawValue(mood)).arg(number);
  track.detail = u"detail %1"_s.arg(number);
  track.resourceName = u"%1-%2"_s.arg(rawValue(mood)).arg(number);
  track.fileExtension = u"m4a"_s;
  return track;
}

QList<Track> ControllerFixture::giveTracks(Mood mood, int count) {
  QList<Track> tracks;
  for (int number = 1; number <= count; ++number) {
    tracks.append(makeTrack(mood, number));
    m_bundle.add(u"PreviewAudio/%1-%2.m4a"_s.arg(rawValue(mood)).arg(number));
  }
  giveList(mood, tracks);
  return tracks;
}

void ControllerFixture::giveList(Mood mood, const QList<Track>& tracks) {
  m_provider->setPlayableTracks(mood, tracks);
  m_provider->setDisplayEntries(mood, tracks);
}

void ControllerFixture::recordSignals() {
  using C = AudioPlayerController;
  C* const c = m_controller.get();
  const auto record = [c, log = m_log](void (C::*changed)(), const char* property, auto value) {
    QObject::connect(c, changed, c, [=] { log->add(QLatin1String(property) + u' ' + value()); });
  };
  QObject::connect(c, &C::objectWillChange, c, [log = m_log] { log->add(u"objectWillChange"_s); });
  record(&C::currentMoodChanged, "currentMood", [c] { return rawValue(c->currentMood().value()); });
  record(&C::currentTrackChanged, "currentTrack", [c] { return c->currentTrack().value().title; });
  record(&C::playlistTracksChanged, "playlistTracks",
         [c] { return QString::number(c->playlistTracks().size()); });
  record(&C::playlistEntriesChanged, "playlistEntries",
         [c] { return QString::number(c->playlistEntries().size()); });
  record(&C::isPlayingChanged, "isPlaying", [c] { return c->isPlaying() ? u"true"_s : u"false"_s; });
  record(&C::playlistPositionTextChanged, "playlistPositionText", [c] { return c->playlistPositionText(); });
  record(&C::elapsedTimeTextChanged, "elapsedTimeText", [c] { return c->elapsedTimeText(); });
  record(&C::durationTextChanged, "durationText", [c] { return c->durationText(); });
  record(&C::playbackProgressChanged, "playbackProgress", [c] { return eventNumber(c->playbackProgress()); });
  record(&C::statusDetailChanged, "statusDetail", [c] { return c->statusDetail(); });
  record(&C::currentVisualIndexChanged, "currentVisualIndex",
         [c] { return QString::number(c->currentVisualIndex()); });
  record(&C::volumeChanged, "volume", [c] { return eventNumber(c->volume()); });
}

void ControllerFixture::tick() {
  m_runLoop.tick();
  m_mainThread.runAll();
}

void ControllerFixture::finishTrack() {
  m_factory.newest().finishPlaying();
  m_mainThread.runAll();
}

}  // namespace mireval
