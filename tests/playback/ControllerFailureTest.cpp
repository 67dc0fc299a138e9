#include "playback/ControllerFixture.h"

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// Three tracks of `focus`; the test breaks the second.
class ControllerFailureTest : public ControllerFixture {
 protected:
  ControllerFailureTest() : m_tracks(giveTracks(Mood::focus, 3)) {}

  void expectFailed(const QString& status) const {
    EXPECT_EQ(m_controller->statusDetail(), status);
    EXPECT_FALSE(m_controller->isPlaying());
    EXPECT_EQ(m_controller->currentTrack(), m_tracks.at(1));
    EXPECT_EQ(m_controller->currentVisualIndex(), 1);
    EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
  }

  QList<Track> m_tracks;
};

TEST_F(ControllerFailureTest, MissingFileLeavesTheEarlierPlayerSounding) {
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  expectFailed(u"Missing bundled track"_s);
  EXPECT_EQ(m_factory.players().size(), 1U);
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(m_runLoop.runningTimers(), 1U);
}

TEST_F(ControllerFailureTest, TrackWithoutResourceNameIsMissing) {
  m_tracks[1].resourceName.reset();
  giveList(Mood::focus, m_tracks);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  m_controller->playNextTrack();
  expectFailed(u"Missing bundled track"_s);
  // There is nothing to look up.
  EXPECT_EQ(m_log->events(), Events{"debug: \"Missing bundled track focus title 2\""});
}

TEST_F(ControllerFailureTest, TrackWithoutExtensionIsMissing) {
  m_tracks[1].fileExtension.reset();
  giveList(Mood::focus, m_tracks);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  m_controller->playNextTrack();
  expectFailed(u"Missing bundled track"_s);
  EXPECT_EQ(m_log->events(), Events{"debug: \"Missing bundled track focus title 2\""});
}

TEST_F(ControllerFailureTest, AvailabilityDecidesNothing) {
  for (Track& track : m_tracks) {
    track.availability = TrackAvailability::upcomingCloud(1);
  }
  giveList(Mood::focus, m_tracks);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);

  Track included = makeTrack(Mood::tempo, 1);
  included.availability = TrackAvailability::included();
  giveList(Mood::tempo, {included});
  m_controller->selectMood(Mood::tempo);
  EXPECT_EQ(m_controller->statusDetail(), u"Missing bundled track"_s);
}

TEST_F(ControllerFailureTest, TitleIsEscapedInTheDebugLine) {
  m_tracks[0].title = u"Rain \"Veil\"\n\\ \t"_s;
  m_tracks[0].resourceName.reset();
  giveList(Mood::focus, m_tracks);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_log->events().back(), R"(debug: "Missing bundled track Rain \"Veil\"\n\\ \t")");
}

TEST_F(ControllerFailureTest, RefusedFileLeavesTheEarlierPlayerSounding) {
  m_controller->selectMood(Mood::focus);
  m_factory.failWith(u"no such codec"_s);
  m_log->take();
  m_controller->playNextTrack();
  expectFailed(u"Playback unavailable"_s);
  EXPECT_EQ(m_log->events(),
            (Events{"bundle: PreviewAudio/focus-2.m4a", "factory: create /bundle/PreviewAudio/focus-2.m4a",
                    "debug: \"Audio playback failed: no such codec\""}));
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(m_runLoop.runningTimers(), 1U);
}

TEST_F(ControllerFailureTest, AMissingFileRegistersNoCommandsARefusedOneDoes) {
  m_bundle.remove(u"PreviewAudio/focus-1.m4a"_s);
  m_controller->selectMood(Mood::focus);
  EXPECT_FALSE(m_remote.playCommand().isEnabled());
  EXPECT_TRUE(m_remote.playCommand().send().empty());

  m_factory.failWith(u"refused"_s);
  m_controller->playNextTrack();
  EXPECT_TRUE(m_remote.playCommand().isEnabled());
  EXPECT_TRUE(m_remote.pauseCommand().isEnabled());
  EXPECT_TRUE(m_remote.togglePlayPauseCommand().isEnabled());
  EXPECT_EQ(m_remote.playCommand().send().size(), 1U);

  // Once only, whatever follows.
  m_factory.succeed();
  m_controller->playNextTrack();
  EXPECT_EQ(m_remote.playCommand().send().size(), 1U);
}

TEST_F(ControllerFailureTest, NothingButTheFailureIsPublishedWithoutAPlayer) {
  m_factory.failWith(u"refused"_s);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_nowPlaying.publications(), 0);
  EXPECT_EQ(m_runLoop.runningTimers(), 0U);
  EXPECT_EQ(m_controller->durationText(), u"0:00"_s);
}

TEST_F(ControllerFailureTest, ToggleAfterAFailureResumesTheEarlierPlayer) {
  m_controller->selectMood(Mood::focus);
  m_controller->togglePlayback();
  m_factory.failWith(u"refused"_s);
  m_controller->playNextTrack();
  expectFailed(u"Playback unavailable"_s);
  ASSERT_FALSE(m_factory.newest().playing);
  m_controller->togglePlayback();
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  EXPECT_EQ(m_controller->currentTrack(), m_tracks.at(1));
}

// The player that still sounds is the one to pause, although `isPlaying` is false.
TEST_F(ControllerFailureTest, ToggleAfterAFailurePausesAPlayerThatStillSounds) {
  m_controller->selectMood(Mood::focus);
  m_factory.failWith(u"refused"_s);
  m_controller->playNextTrack();
  ASSERT_TRUE(m_factory.newest().playing);
  m_controller->togglePlayback();
  EXPECT_FALSE(m_factory.newest().playing);
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Paused"_s);
}

TEST_F(ControllerFailureTest, TheClockGoesOnReportingTheEarlierPlayer) {
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  m_factory.newest().currentTime = 60;
  tick();
  EXPECT_EQ(m_controller->elapsedTimeText(), u"1:00"_s);
  EXPECT_EQ(m_controller->playbackProgress(), 0.5);
  // The failed track's names with the earlier player's times.
  const auto& info = m_nowPlaying.nowPlayingInfo();
  ASSERT_TRUE(info);
  EXPECT_EQ(info->title, u"focus title 2"_s);
  EXPECT_EQ(info->elapsedPlaybackSeconds, 60);
  EXPECT_EQ(info->playbackRate, 0);
}

TEST_F(ControllerFailureTest, AFailurePublishesNoNowPlayingInformationItself) {
  m_controller->selectMood(Mood::focus);
  const int before = m_nowPlaying.publications();
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  EXPECT_EQ(m_nowPlaying.publications(), before);
}

TEST_F(ControllerFailureTest, NextGoesOnFromTheFailedTrack) {
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"3 / 3"_s);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_FALSE(m_factory.players().at(0)->isAlive());
}

TEST_F(ControllerFailureTest, EndOfTheEarlierTrackGoesOnFromTheFailedOne) {
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  finishTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"3 / 3"_s);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
}

TEST_F(ControllerFailureTest, AFileThatAppearsLaterIsFound) {
  m_bundle.remove(u"PreviewAudio/focus-1.m4a"_s);
  m_controller->selectMood(Mood::focus);
  ASSERT_EQ(m_controller->statusDetail(), u"Missing bundled track"_s);
  m_bundle.add(u"PreviewAudio/focus-1.m4a"_s);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
}

}  // namespace
}  // namespace mireval
