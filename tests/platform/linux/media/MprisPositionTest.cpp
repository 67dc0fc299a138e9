#include "platform/linux/media/MprisPosition.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace std::chrono_literals;

/// A clock of its own; times are since its start.
class MprisPositionTest : public testing::Test {
 protected:
  bool publish(std::chrono::milliseconds elapsed, bool playing = true, bool newTrack = false) {
    return m_position.publish({.elapsed = elapsed, .length = 60s, .playing = playing, .newTrack = newTrack},
                              m_now);
  }

  /// Plays on, publishing every half second as the player's clock does; true if clients had to be told.
  bool playFor(std::chrono::milliseconds duration, std::chrono::milliseconds from) {
    bool told = false;
    for (auto played = 500ms; played <= duration; played += 500ms) {
      m_now += 500ms;
      told = publish(from + played) || told;
    }
    return told;
  }

  MprisPosition::Microseconds now() { return m_position.at(m_now); }

  MprisPosition m_position;
  MprisPosition::Clock::time_point m_now{1000s};
};

TEST_F(MprisPositionTest, ZeroBeforeAnything) {
  EXPECT_EQ(now(), 0s);
}

TEST_F(MprisPositionTest, AdvancesBetweenPublicationsWhilePlaying) {
  EXPECT_FALSE(publish(0ms));
  m_now += 320ms;
  EXPECT_EQ(now(), 320ms);
  m_now += 180ms;
  EXPECT_FALSE(publish(500ms));
  EXPECT_EQ(now(), 500ms);
}

TEST_F(MprisPositionTest, StandsStillWhilePausedAndGoesOnFromThere) {
  publish(0ms);
  playFor(10s, 0ms);
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(publish(10s, false));
    m_now += 300s;
    EXPECT_EQ(now(), 10s);
  }
  EXPECT_FALSE(publish(10s, true));
  m_now += 250ms;
  EXPECT_EQ(now(), 10s + 250ms);
}

// The sound may lag a little behind the clock that extrapolated it.
TEST_F(MprisPositionTest, NeverRunsBackwards) {
  publish(0ms);
  m_now += 500ms;
  EXPECT_EQ(now(), 500ms);
  EXPECT_FALSE(publish(430ms));
  EXPECT_EQ(now(), 500ms);
  m_now += 50ms;
  EXPECT_EQ(now(), 500ms);
  m_now += 50ms;
  EXPECT_EQ(now(), 530ms);
  EXPECT_FALSE(publish(490ms, false));
  EXPECT_EQ(now(), 530ms);
}

TEST_F(MprisPositionTest, WaitsForAPublicationThatIsLate) {
  publish(5s);
  m_now += 20s;
  EXPECT_EQ(now(), 6s);
}

TEST_F(MprisPositionTest, NeverBeyondTheLengthIfThatIsKnown) {
  publish(59s + 900ms);
  m_now += 500ms;
  EXPECT_EQ(now(), 60s);
  m_position.publish({.elapsed = 70s, .length = 60s, .playing = true}, m_now);
  EXPECT_EQ(now(), 60s);
  m_position.publish({.elapsed = 70s, .length = std::nullopt, .playing = true}, m_now);
  m_now += 500ms;
  EXPECT_EQ(now(), 70s + 500ms);
}

TEST_F(MprisPositionTest, ClientsAreToldOnlyWhenATrackStarts) {
  publish(0ms);
  EXPECT_FALSE(playFor(59s, 0ms));
  // The next track, and the same one again.
  for (const bool newTrack : {true, false}) {
    m_now += 100ms;
    EXPECT_GT(now(), 10s);
    EXPECT_TRUE(publish(0ms, true, newTrack));
    EXPECT_EQ(now(), 0s);
    EXPECT_FALSE(playFor(30s, 0ms));
  }
}

TEST_F(MprisPositionTest, ATrackLeftAtOnceIsNoJump) {
  publish(0ms);
  m_now += 400ms;
  EXPECT_EQ(now(), 400ms);
  EXPECT_FALSE(publish(0ms, true, true));
  EXPECT_EQ(now(), 0s);
}

TEST_F(MprisPositionTest, NextWhilePausedIsAJumpToo) {
  publish(0ms);
  playFor(30s, 0ms);
  publish(30s, false);
  m_now += 60s;
  EXPECT_TRUE(publish(0ms, true, true));
}

// The sound server hangs: the position stands while clients go on counting.
TEST_F(MprisPositionTest, ClientsAreToldOncePerSecondOfAStall) {
  publish(0ms);
  playFor(10s, 0ms);
  int told = 0;
  for (int i = 0; i < 6; ++i) {
    m_now += 500ms;
    told += publish(10s) ? 1 : 0;
  }
  EXPECT_EQ(told, 2);
  EXPECT_EQ(now(), 10s);
}

// Each pause is a little off for a client; what adds up has to be told in the end.
TEST_F(MprisPositionTest, SmallErrorsAddUp) {
  publish(0ms);
  bool told = false;
  auto elapsed = 0ms;
  for (int i = 0; i < 20; ++i) {
    m_now += 500ms;
    elapsed += 440ms;
    told = publish(elapsed, false) || told;
    told = publish(elapsed, true) || told;
  }
  EXPECT_TRUE(told);
}

}  // namespace
}  // namespace mireval
