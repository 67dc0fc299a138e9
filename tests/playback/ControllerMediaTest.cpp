#include "playback/ControllerFixture.h"

#include <cmath>
#include <limits>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr auto success = RemoteCommandHandlerStatus::success;

class ControllerMediaTest : public ControllerFixture {
 protected:
  ControllerMediaTest() {
    giveTracks(Mood::focus, 3);
    m_controller->selectMood(Mood::focus);
    m_factory.newest().currentTime = 42;
    tick();
    recordSignals();
    m_log->take();
  }

  /// Sends the command and runs what it causes on the UI thread.
  Events send(const FakeRemoteCommand& command) {
    EXPECT_EQ(command.send(), std::vector{success});
    m_mainThread.runAll();
    return m_log->take();
  }

  const Events m_paused{"mainThread: async",
                        "player 1: pause",
                        "objectWillChange",
                        "isPlaying false",
                        "objectWillChange",
                        "statusDetail Paused",
                        "bundle: CoverImages/focus-01.png",
                        "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 42 | 0"};
  const Events m_resumed{"mainThread: async",
                         "player 1: play",
                         "objectWillChange",
                         "isPlaying true",
                         "objectWillChange",
                         "statusDetail Playing",
                         "bundle: CoverImages/focus-01.png",
                         "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 42 | 1"};
  const Events m_nothing{"mainThread: async"};
};

TEST_F(ControllerMediaTest, PlayCommand) {
  EXPECT_EQ(send(m_remote.playCommand()), m_nothing);
  m_controller->togglePlayback();
  m_log->take();
  EXPECT_EQ(send(m_remote.playCommand()), m_resumed);
}

TEST_F(ControllerMediaTest, PauseCommand) {
  EXPECT_EQ(send(m_remote.pauseCommand()), m_paused);
  EXPECT_EQ(send(m_remote.pauseCommand()), m_nothing);
}

TEST_F(ControllerMediaTest, ToggleCommand) {
  EXPECT_EQ(send(m_remote.togglePlayPauseCommand()), m_paused);
  EXPECT_EQ(send(m_remote.togglePlayPauseCommand()), m_resumed);
}

// The state counts when the command is obeyed, not when it arrives.
TEST_F(ControllerMediaTest, CommandsAreObeyedInTheOrderTheyArrive) {
  EXPECT_EQ(m_remote.pauseCommand().send(), std::vector{success});
  EXPECT_EQ(m_remote.playCommand().send(), std::vector{success});
  EXPECT_EQ(m_remote.playCommand().send(), std::vector{success});
  m_mainThread.runAll();
  EXPECT_EQ(m_log->events(),
            (Events{"mainThread: async", "mainThread: async", "mainThread: async", "player 1: pause",
                    "objectWillChange", "isPlaying false", "objectWillChange", "statusDetail Paused",
                    "bundle: CoverImages/focus-01.png",
                    "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 42 | 0",
                    "player 1: play", "objectWillChange", "isPlaying true", "objectWillChange",
                    "statusDetail Playing", "bundle: CoverImages/focus-01.png",
                    "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 42 | 1"}));
}

TEST_F(ControllerMediaTest, CommandsAreRegisteredOnce) {
  m_controller->playNextTrack();
  m_controller->togglePlayback();
  m_controller->togglePlayback();
  m_controller->selectMood(Mood::focus);
  for (const std::string& event : m_log->events()) {
    EXPECT_EQ(event.find("addHandler"), std::string::npos);
    EXPECT_EQ(event.find("setEnabled"), std::string::npos);
  }
}

// After a refused file the commands exist, but there is no player.
TEST_F(ControllerFixture, CommandsWithoutPlayerDoNothing) {
  giveTracks(Mood::focus, 1);
  m_factory.failWith(u"refused"_s);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  for (const FakeRemoteCommand* const command :
       {&m_remote.playCommand(), &m_remote.pauseCommand(), &m_remote.togglePlayPauseCommand()}) {
    EXPECT_EQ(command->send(), std::vector{success});
    m_mainThread.runAll();
  }
  EXPECT_EQ(m_log->events(), (Events{"mainThread: async", "mainThread: async", "mainThread: async"}));
  EXPECT_EQ(m_controller->statusDetail(), u"Playback unavailable"_s);
}

TEST_F(ControllerMediaTest, SixEntriesOfThePlayingTrack) {
  const auto& info = m_nowPlaying.nowPlayingInfo();
  ASSERT_TRUE(info);
  EXPECT_EQ(info->title, u"focus title 1"_s);
  EXPECT_EQ(info->albumTitle, u"Mireval"_s);
  EXPECT_EQ(info->artist, u"Mireval \u2022 Focus"_s);
  EXPECT_EQ(info->playbackDurationSeconds, 120);
  EXPECT_EQ(info->elapsedPlaybackSeconds, 42);
  EXPECT_EQ(info->playbackRate, 1);
}

TEST_F(ControllerMediaTest, PauseKeepsThePositionAndStopsTheRate) {
  m_controller->togglePlayback();
  tick();
  const auto& info = m_nowPlaying.nowPlayingInfo();
  ASSERT_TRUE(info);
  EXPECT_EQ(info->elapsedPlaybackSeconds, 42);
  EXPECT_EQ(info->playbackRate, 0);
}

TEST_F(ControllerMediaTest, ArtistNamesTheTracksOwnMood) {
  for (const auto& [mood, artist] : {std::pair(Mood::relaxation, u"Mireval \u2022 Relaxation"_s),
                                     std::pair(Mood::focus, u"Mireval \u2022 Focus"_s),
                                     std::pair(Mood::creative, u"Mireval \u2022 Creative"_s),
                                     std::pair(Mood::tempo, u"Mireval \u2022 Tempo"_s)}) {
    Track stray = makeTrack(Mood::focus, 1);
    stray.mood = mood;
    giveList(Mood::focus, {stray});
    m_controller->selectMood(Mood::focus);
    ASSERT_TRUE(m_nowPlaying.nowPlayingInfo());
    EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->artist, artist);
  }
}

TEST_F(ControllerMediaTest, TimesAreHandedOverAsThePlayerStatesThem) {
  m_factory.newest().duration = -3.25;
  m_factory.newest().currentTime = 900.125;
  tick();
  ASSERT_TRUE(m_nowPlaying.nowPlayingInfo());
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->playbackDurationSeconds, -3.25);
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->elapsedPlaybackSeconds, 900.125);

  m_factory.newest().duration = std::numeric_limits<double>::quiet_NaN();
  m_factory.newest().currentTime = -1;
  tick();
  EXPECT_TRUE(std::isnan(m_nowPlaying.nowPlayingInfo()->playbackDurationSeconds));
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->elapsedPlaybackSeconds, -1);
}

// While nothing has played there is nothing to show, and nothing to clear either.
TEST_F(ControllerFixture, NothingIsPublishedBeforeTheFirstPlayer) {
  m_controller->selectMood(Mood::focus);
  m_controller->togglePlayback();
  giveList(Mood::focus, {makeTrack(Mood::focus, 1)});
  m_controller->selectMood(Mood::focus);
  tick();
  EXPECT_EQ(m_nowPlaying.publications(), 0);
}

}  // namespace
}  // namespace mireval
