#include "playback/ControllerFixture.h"

#include <functional>
#include <thread>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

void runOnAnotherThread(const std::function<void()>& work) {
  std::thread(work).join();
}

/// A playing controller, its signals recorded, its log empty.
class ControllerThreadTest : public ControllerFixture {
 protected:
  ControllerThreadTest() {
    giveTracks(Mood::focus, 3);
    m_controller->selectMood(Mood::focus);
    m_factory.newest().currentTime = 30;
    recordSignals();
    m_log->take();
  }
};

TEST_F(ControllerThreadTest, ATickElsewhereOnlyAddsATask) {
  runOnAnotherThread([this] { m_runLoop.tick(); });
  EXPECT_EQ(m_log->take(), Events{"mainThread: async"});
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:00"_s);
  m_mainThread.runAll();
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:30"_s);
}

TEST_F(ControllerThreadTest, TheEndOfATrackElsewhereOnlyAddsATask) {
  runOnAnotherThread([this] { m_factory.newest().finishPlaying(); });
  EXPECT_EQ(m_log->take(), Events{"mainThread: async"});
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 3"_s);
  EXPECT_EQ(m_factory.players().size(), 1U);
  m_mainThread.runAll();
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
}

TEST_F(ControllerThreadTest, CommandsElsewhereOnlyAddTasks) {
  for (const FakeRemoteCommand* const command :
       {&m_remote.playCommand(), &m_remote.pauseCommand(), &m_remote.togglePlayPauseCommand()}) {
    runOnAnotherThread(
        [command] { EXPECT_EQ(command->send(), std::vector{RemoteCommandHandlerStatus::success}); });
    EXPECT_EQ(m_log->take(), Events{"mainThread: async"});
  }
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_TRUE(m_factory.newest().playing);
  m_mainThread.runAll();
  // play (already playing), pause, toggle: playing again.
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_log->events().front(), "player 1: pause");
}

// The end of a track while the UI thread works: for the thread sanitizer above all.
TEST_F(ControllerThreadTest, CallbacksMayComeWhileTheUiThreadWorks) {
  std::thread elsewhere([this, state = m_factory.players().at(0)] {
    for (int i = 0; i < 200; ++i) {
      EXPECT_EQ(m_remote.togglePlayPauseCommand().send().size(), 1U);
    }
    state->delegate->audioPlayerDidFinishPlaying(*state->player, true);
  });
  for (int i = 0; i < 200; ++i) {
    m_controller->setVolume(i % 2 == 0 ? 0.2 : 0.4);
    m_mainThread.runAll();
  }
  elsewhere.join();
  m_mainThread.runAll();
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
}

TEST_F(ControllerThreadTest, ATickAfterTheControllerDoesNothing) {
  m_runLoop.tick();
  m_controller.reset();
  m_log->take();
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), Events{});

  // Nobody stopped the clock.
  EXPECT_EQ(m_runLoop.runningTimers(), 1U);
  m_runLoop.tick();
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), Events{"mainThread: async"});
}

TEST_F(ControllerThreadTest, CommandsAfterTheControllerAreAnsweredAndIgnored) {
  EXPECT_EQ(m_remote.pauseCommand().send(), std::vector{RemoteCommandHandlerStatus::success});
  m_controller.reset();
  m_log->take();
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), Events{});
  for (const FakeRemoteCommand* const command :
       {&m_remote.playCommand(), &m_remote.pauseCommand(), &m_remote.togglePlayPauseCommand()}) {
    EXPECT_EQ(command->send(), std::vector{RemoteCommandHandlerStatus::success});
    m_mainThread.runAll();
  }
  EXPECT_EQ(m_log->events(), (Events{"mainThread: async", "mainThread: async", "mainThread: async"}));
}

// Whoever shows it last is not told that the controller went.
TEST_F(ControllerThreadTest, TheEndOfTheControllerLeavesInformationAndHandlers) {
  const int publications = m_nowPlaying.publications();
  m_controller.reset();
  EXPECT_EQ(m_log->take(), Events{"player 1: destroyed"});
  EXPECT_EQ(m_nowPlaying.publications(), publications);
  ASSERT_TRUE(m_nowPlaying.nowPlayingInfo());
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->title, u"focus title 1"_s);
  for (const FakeRemoteCommand* const command :
       {&m_remote.playCommand(), &m_remote.pauseCommand(), &m_remote.togglePlayPauseCommand()}) {
    EXPECT_EQ(command->send().size(), 1U);
  }
}

TEST_F(ControllerThreadTest, NeitherClockNorCommandsKeepTheControllerAlive) {
  const std::weak_ptr<AudioPlayerController> weak = m_controller;
  m_runLoop.tick();
  EXPECT_EQ(m_remote.playCommand().send().size(), 1U);
  ASSERT_EQ(m_mainThread.pending(), 2U);
  m_controller.reset();
  EXPECT_TRUE(weak.expired());
}

TEST_F(ControllerThreadTest, TheEndOfATrackKeepsTheControllerAliveUntilItIsHandled) {
  const std::weak_ptr<AudioPlayerController> weak = m_controller;
  runOnAnotherThread([this] { m_factory.newest().finishPlaying(); });
  m_controller.reset();
  ASSERT_FALSE(weak.expired());
  EXPECT_EQ(m_factory.players().size(), 1U);
  m_mainThread.runAll();
  // The next track was loaded and released with the controller.
  EXPECT_EQ(m_factory.players().size(), 2U);
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(m_factory.newest().isAlive());
}

TEST_F(ControllerThreadTest, ADroppedTaskReleasesTheController) {
  const std::weak_ptr<AudioPlayerController> weak = m_controller;
  m_factory.newest().finishPlaying();
  m_controller.reset();
  ASSERT_FALSE(weak.expired());
  m_mainThread.dropAll();
  EXPECT_TRUE(weak.expired());
}

// A player may still be telling its end while it is destroyed together with its controller.
TEST_F(ControllerThreadTest, AnEndToldDuringDestructionIsIgnored) {
  m_factory.newest().finishesWhileDestroyed = true;
  m_controller.reset();
  EXPECT_EQ(m_log->events(), Events{"player 1: destroyed"});
  EXPECT_EQ(m_mainThread.pending(), 0U);
}

}  // namespace
}  // namespace mireval
