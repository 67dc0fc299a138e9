#include "playback/ControllerFixture.h"

#include <limits>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class ControllerProgressTest : public ControllerFixture {
 protected:
  ControllerProgressTest() {
    giveTracks(Mood::focus, 3);
    m_controller->selectMood(Mood::focus);
  }

  void tickAt(double duration, double currentTime) {
    m_factory.newest().duration = duration;
    m_factory.newest().currentTime = currentTime;
    tick();
  }
};

TEST_F(ControllerProgressTest, ATickRefreshesProgressAndTexts) {
  tickAt(200, 50);
  EXPECT_EQ(m_controller->playbackProgress(), 0.25);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:50"_s);
  EXPECT_EQ(m_controller->durationText(), u"3:20"_s);
}

TEST_F(ControllerProgressTest, ALoadShowsTheNewTrackAtOnce) {
  tickAt(200, 50);
  m_factory.setDuration(65);
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->playbackProgress(), 0);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:00"_s);
  EXPECT_EQ(m_controller->durationText(), u"1:05"_s);
}

TEST_F(ControllerProgressTest, NoDurationGivesNoProgress) {
  for (const double duration : {0.0, -0.0, -5.0, -1e300, -infinity}) {
    tickAt(100, 50);
    tickAt(duration, 12);
    EXPECT_EQ(m_controller->playbackProgress(), 0) << duration;
    EXPECT_EQ(m_controller->elapsedTimeText(), u"0:00"_s) << duration;
    EXPECT_EQ(m_controller->durationText(), u"0:00"_s) << duration;
  }
}

TEST_F(ControllerProgressTest, UnknownDurationStillShowsThePosition) {
  tickAt(100, 50);
  tickAt(notANumber, 12);
  EXPECT_EQ(m_controller->playbackProgress(), 0);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:12"_s);
  EXPECT_EQ(m_controller->durationText(), u"0:00"_s);
}

TEST_F(ControllerProgressTest, EndlessDurationStillShowsThePosition) {
  tickAt(100, 50);
  tickAt(infinity, 12);
  EXPECT_EQ(m_controller->playbackProgress(), 0);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:12"_s);
  EXPECT_EQ(m_controller->durationText(), u"0:00"_s);
}

TEST_F(ControllerProgressTest, PositionBeyondTheEndIsTheEnd) {
  for (const double position : {100.0, 100.4, 250.0, infinity}) {
    tickAt(100, 0);
    tickAt(100, position);
    EXPECT_EQ(m_controller->playbackProgress(), 1) << position;
    EXPECT_EQ(m_controller->elapsedTimeText(), u"1:40"_s) << position;
    EXPECT_EQ(m_controller->durationText(), u"1:40"_s) << position;
  }
}

TEST_F(ControllerProgressTest, PositionBeforeTheStartIsTheStart) {
  for (const double position : {0.0, -0.5, -1e300, -infinity}) {
    tickAt(100, 50);
    tickAt(100, position);
    EXPECT_EQ(m_controller->playbackProgress(), 0) << position;
    EXPECT_EQ(m_controller->elapsedTimeText(), u"0:00"_s) << position;
  }
}

TEST_F(ControllerProgressTest, TextsAreRounded) {
  tickAt(119.5, 59.5);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"1:00"_s);
  EXPECT_EQ(m_controller->durationText(), u"2:00"_s);
  EXPECT_EQ(m_controller->playbackProgress(), 59.5 / 119.5);
}

TEST_F(ControllerProgressTest, EachSuccessfulLoadReplacesTheClock) {
  EXPECT_EQ(m_runLoop.runningTimers(), 1U);
  m_log->take();
  m_controller->playNextTrack();
  finishTrack();
  EXPECT_EQ(m_runLoop.runningTimers(), 1U);
  Events clock = m_log->take();
  std::erase_if(clock, [](const std::string& event) { return !event.starts_with("runLoop:"); });
  EXPECT_EQ(clock, (Events{"runLoop: timer 1 invalidated", "runLoop: timer 2 every 500 ms",
                           "runLoop: timer 2 invalidated", "runLoop: timer 3 every 500 ms"}));
}

TEST_F(ControllerProgressTest, TheClockKeepsTickingThroughPauseAndResume) {
  m_log->take();
  m_controller->togglePlayback();
  tickAt(120, 30);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:30"_s);
  m_controller->togglePlayback();
  tickAt(120, 31);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:31"_s);
  for (const std::string& event : m_log->events()) {
    EXPECT_FALSE(event.starts_with("runLoop:")) << event;
  }
}

TEST_F(ControllerProgressTest, EachTickPublishesNowPlayingInformation) {
  const int before = m_nowPlaying.publications();
  tick();
  tick();
  EXPECT_EQ(m_nowPlaying.publications(), before + 2);
}

}  // namespace
}  // namespace mireval
