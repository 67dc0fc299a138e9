#include "playback/ControllerFixture.h"

#include <algorithm>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

// Each test compares everything that an operation causes, in order. "objectWillChange" precedes every write;
// the property's own line follows only where the value differs.

using ControllerEffectOrderTest = ControllerFixture;

TEST_F(ControllerEffectOrderTest, FirstMood) {
  giveTracks(Mood::focus, 2);
  recordSignals();
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",
                                 "currentMood focus",
                                 "provider: playableTracks focus",
                                 "objectWillChange",
                                 "playlistTracks 2",
                                 "provider: displayEntries focus",
                                 "objectWillChange",
                                 "playlistEntries 2",
                                 "objectWillChange",
                                 "statusDetail Connecting focus atmosphere",
                                 "objectWillChange",
                                 "currentTrack focus title 1",
                                 "objectWillChange",  // currentVisualIndex, still 0
                                 "objectWillChange",
                                 "playlistPositionText 1 / 2",
                                 "bundle: PreviewAudio/focus-1.m4a",
                                 "play: setEnabled true",
                                 "pause: setEnabled true",
                                 "toggle: setEnabled true",
                                 "play: addHandler",
                                 "pause: addHandler",
                                 "toggle: addHandler",
                                 "factory: create /bundle/PreviewAudio/focus-1.m4a",
                                 "player 1: setDelegate",
                                 "player 1: setVolume 0.65",
                                 "player 1: prepareToPlay",
                                 "player 1: play",
                                 "objectWillChange",
                                 "isPlaying true",
                                 "objectWillChange",
                                 "statusDetail Playing",
                                 "runLoop: timer 1 every 500 ms",
                                 "objectWillChange",  // playbackProgress, still 0
                                 "objectWillChange",  // elapsedTimeText, still 0:00
                                 "objectWillChange",
                                 "durationText 2:00",
                                 "bundle: CoverImages/focus-01.png",
                                 "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1",
                                 "bundle: CoverImages/focus-01.png",
                                 "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1",
                             }));
}

TEST_F(ControllerEffectOrderTest, TheSameMoodAgain) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",  // currentMood
                                 "provider: playableTracks focus",
                                 "objectWillChange",  // playlistTracks
                                 "provider: displayEntries focus",
                                 "objectWillChange",  // playlistEntries
                                 "objectWillChange",
                                 "statusDetail Connecting focus atmosphere",
                                 "objectWillChange",  // currentTrack
                                 "objectWillChange",  // currentVisualIndex
                                 "objectWillChange",  // playlistPositionText
                                 "bundle: PreviewAudio/focus-1.m4a",
                                 "factory: create /bundle/PreviewAudio/focus-1.m4a",
                                 "player 2: setDelegate",
                                 "player 2: setVolume 0.65",
                                 "player 2: prepareToPlay",
                                 "player 2: play",
                                 "player 1: destroyed",
                                 "objectWillChange",  // isPlaying
                                 "objectWillChange",
                                 "statusDetail Playing",
                                 "runLoop: timer 1 invalidated",
                                 "runLoop: timer 2 every 500 ms",
                                 "objectWillChange",  // playbackProgress
                                 "objectWillChange",  // elapsedTimeText
                                 "objectWillChange",  // durationText
                                 "bundle: CoverImages/focus-01.png",
                                 "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1",
                                 "bundle: CoverImages/focus-01.png",
                                 "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1",
                             }));
}

TEST_F(ControllerEffectOrderTest, NextFromPaused) {
  giveTracks(Mood::tempo, 3);
  m_controller->selectMood(Mood::tempo);
  m_factory.newest().currentTime = 30;
  tick();
  m_controller->togglePlayback();
  m_factory.setDuration(60);
  m_log->take();
  recordSignals();
  m_controller->playNextTrack();
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",
                                 "currentTrack tempo title 2",
                                 "objectWillChange",
                                 "currentVisualIndex 1",
                                 "objectWillChange",
                                 "playlistPositionText 2 / 3",
                                 "bundle: PreviewAudio/tempo-2.m4a",
                                 "factory: create /bundle/PreviewAudio/tempo-2.m4a",
                                 "player 2: setDelegate",
                                 "player 2: setVolume 0.65",
                                 "player 2: prepareToPlay",
                                 "player 2: play",
                                 "player 1: destroyed",
                                 "objectWillChange",
                                 "isPlaying true",
                                 "objectWillChange",
                                 "statusDetail Playing",
                                 "runLoop: timer 1 invalidated",
                                 "runLoop: timer 2 every 500 ms",
                                 "objectWillChange",
                                 "playbackProgress 0",
                                 "objectWillChange",
                                 "elapsedTimeText 0:00",
                                 "objectWillChange",
                                 "durationText 1:00",
                                 "bundle: CoverImages/tempo-02.png",
                                 "nowPlaying: tempo title 2 | Mireval | Mireval \u2022 Tempo | 60 | 0 | 1",
                                 "bundle: CoverImages/tempo-02.png",
                                 "nowPlaying: tempo title 2 | Mireval | Mireval \u2022 Tempo | 60 | 0 | 1",
                             }));
}

TEST_F(ControllerEffectOrderTest, EmptyMood) {
  recordSignals();
  m_controller->selectMood(Mood::creative);
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",
                                 "currentMood creative",
                                 "provider: playableTracks creative",
                                 "objectWillChange",  // playlistTracks
                                 "provider: displayEntries creative",
                                 "objectWillChange",  // playlistEntries
                                 "objectWillChange",
                                 "statusDetail Connecting creative atmosphere",
                             }));
}

TEST_F(ControllerEffectOrderTest, Pause) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().currentTime = 12.5;
  m_log->take();
  recordSignals();
  m_controller->togglePlayback();
  EXPECT_EQ(m_log->events(),
            (Events{
                "player 1: pause",
                "objectWillChange",
                "isPlaying false",
                "objectWillChange",
                "statusDetail Paused",
                "bundle: CoverImages/focus-01.png",
                "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 12.5 | 0",
            }));
}

TEST_F(ControllerEffectOrderTest, Resume) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().currentTime = 12.5;
  m_controller->togglePlayback();
  m_log->take();
  recordSignals();
  m_controller->togglePlayback();
  // The clock is not restarted and the commands are not registered again.
  EXPECT_EQ(m_log->events(),
            (Events{
                "player 1: play",
                "objectWillChange",
                "isPlaying true",
                "objectWillChange",
                "statusDetail Playing",
                "bundle: CoverImages/focus-01.png",
                "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 12.5 | 1",
            }));
}

TEST_F(ControllerEffectOrderTest, Tick) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().currentTime = 30;
  m_log->take();
  recordSignals();
  tick();
  EXPECT_EQ(m_log->events(), (Events{
                                 "mainThread: async",
                                 "objectWillChange",
                                 "playbackProgress 0.25",
                                 "objectWillChange",
                                 "elapsedTimeText 0:30",
                                 "objectWillChange",  // durationText
                                 "bundle: CoverImages/focus-01.png",
                                 "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 30 | 1",
                             }));
}

TEST_F(ControllerEffectOrderTest, MissingFileOnTheFirstLoad) {
  giveList(Mood::focus, {makeTrack(Mood::focus, 1)});
  recordSignals();
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",
                                 "currentMood focus",
                                 "provider: playableTracks focus",
                                 "objectWillChange",
                                 "playlistTracks 1",
                                 "provider: displayEntries focus",
                                 "objectWillChange",
                                 "playlistEntries 1",
                                 "objectWillChange",
                                 "statusDetail Connecting focus atmosphere",
                                 "objectWillChange",
                                 "currentTrack focus title 1",
                                 "objectWillChange",  // currentVisualIndex
                                 "objectWillChange",
                                 "playlistPositionText 1 / 1",
                                 "bundle: PreviewAudio/focus-1.m4a",
                                 "objectWillChange",  // isPlaying
                                 "objectWillChange",
                                 "statusDetail Missing bundled track",
                                 "debug: \"Missing bundled track focus title 1\"",
                             }));
}

TEST_F(ControllerEffectOrderTest, MissingFileWhilePlaying) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_log->take();
  recordSignals();
  m_controller->playNextTrack();
  EXPECT_EQ(m_log->events(), (Events{
                                 "objectWillChange",
                                 "currentTrack focus title 2",
                                 "objectWillChange",
                                 "currentVisualIndex 1",
                                 "objectWillChange",
                                 "playlistPositionText 2 / 2",
                                 "bundle: PreviewAudio/focus-2.m4a",
                                 "objectWillChange",
                                 "isPlaying false",
                                 "objectWillChange",
                                 "statusDetail Missing bundled track",
                                 "debug: \"Missing bundled track focus title 2\"",
                             }));
}

TEST_F(ControllerEffectOrderTest, RefusedFileOnTheFirstLoad) {
  giveTracks(Mood::focus, 1);
  m_factory.failWith(u"no \"sound\" here"_s);
  recordSignals();
  m_controller->selectMood(Mood::focus);
  const Events events = m_log->take();
  const auto lookUp = std::ranges::find(events, "bundle: PreviewAudio/focus-1.m4a");
  EXPECT_EQ(Events(lookUp, events.end()), (Events{
                                              "bundle: PreviewAudio/focus-1.m4a",
                                              "play: setEnabled true",
                                              "pause: setEnabled true",
                                              "toggle: setEnabled true",
                                              "play: addHandler",
                                              "pause: addHandler",
                                              "toggle: addHandler",
                                              "factory: create /bundle/PreviewAudio/focus-1.m4a",
                                              "objectWillChange",  // isPlaying
                                              "objectWillChange",
                                              "statusDetail Playback unavailable",
                                              R"(debug: "Audio playback failed: no \"sound\" here")",
                                          }));
}

}  // namespace
}  // namespace mireval
