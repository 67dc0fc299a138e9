#include "playback/ControllerFixture.h"

#include <QMetaProperty>

#include <type_traits>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using ControllerTest = ControllerFixture;

static_assert(!std::is_default_constructible_v<AudioPlayerController>);
static_assert(!std::is_copy_constructible_v<AudioPlayerController>);

TEST_F(ControllerTest, InitialValues) {
  EXPECT_EQ(m_controller->currentMood(), std::nullopt);
  EXPECT_EQ(m_controller->currentTrack(), std::nullopt);
  EXPECT_TRUE(m_controller->playlistTracks().isEmpty());
  EXPECT_TRUE(m_controller->playlistEntries().isEmpty());
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 3"_s);
  EXPECT_EQ(m_controller->elapsedTimeText(), u"0:00"_s);
  EXPECT_EQ(m_controller->durationText(), u"0:00"_s);
  EXPECT_EQ(m_controller->playbackProgress(), 0);
  EXPECT_EQ(m_controller->statusDetail(), u"Ready"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 0);
  EXPECT_EQ(m_controller->volume(), 0.65);
}

TEST_F(ControllerTest, MakingItTouchesNoService) {
  EXPECT_EQ(m_log->events(), Events{});
}

TEST_F(ControllerTest, PropertiesForViews) {
  const QMetaObject& type = AudioPlayerController::staticMetaObject;
  std::vector<std::string> names;
  for (int i = QObject::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
    const QMetaProperty property = type.property(i);
    names.emplace_back(property.name());
    EXPECT_EQ(property.notifySignal().name(), QByteArray(property.name()) + "Changed");
    EXPECT_EQ(property.isWritable(), QByteArray(property.name()) == "volume") << property.name();
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"currentMood", "currentTrack", "playlistTracks", "playlistEntries",
                                      "isPlaying", "playlistPositionText", "elapsedTimeText", "durationText",
                                      "playbackProgress", "statusDetail", "currentVisualIndex", "volume"}));

  EXPECT_FALSE(m_controller->property("currentMood").isValid());
  EXPECT_FALSE(m_controller->property("currentTrack").isValid());
  const QList<Track> tracks = giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->property("currentMood").value<Mood>(), Mood::focus);
  EXPECT_EQ(m_controller->property("currentTrack").value<Track>(), tracks.at(0));
  EXPECT_EQ(m_controller->property("playlistTracks").value<QList<Track>>(), tracks);
  EXPECT_EQ(m_controller->property("currentVisualIndex").toLongLong(), 0);
}

TEST_F(ControllerTest, SelectMoodPlaysTheFirstTrack) {
  const QList<Track> tracks = giveTracks(Mood::focus, 16);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->currentMood(), Mood::focus);
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(0));
  EXPECT_EQ(m_controller->playlistTracks(), tracks);
  EXPECT_EQ(m_controller->playlistEntries(), tracks);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 16"_s);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 0);
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(m_factory.newest().title, tracks.at(0).title);
}

TEST_F(ControllerTest, TracksAndEntriesMayDiffer) {
  const QList<Track> tracks = giveTracks(Mood::focus, 2);
  const QList<Track> entries{makeTrack(Mood::focus, 7)};
  m_provider->setDisplayEntries(Mood::focus, entries);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->playlistTracks(), tracks);
  EXPECT_EQ(m_controller->playlistEntries(), entries);
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 2"_s);
}

TEST_F(ControllerTest, PlaysTheListInTheOrderGiven) {
  giveTracks(Mood::focus, 3);
  const QList<Track> order{makeTrack(Mood::focus, 3), makeTrack(Mood::focus, 1), makeTrack(Mood::focus, 2)};
  giveList(Mood::focus, order);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->currentTrack(), order.at(0));
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->currentTrack(), order.at(1));
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->currentTrack(), order.at(2));
}

TEST_F(ControllerTest, SelectingAnotherModeStartsItsFirstTrack) {
  giveTracks(Mood::focus, 3);
  const QList<Track> tempo = giveTracks(Mood::tempo, 2);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  m_controller->selectMood(Mood::tempo);
  EXPECT_EQ(m_controller->currentMood(), Mood::tempo);
  EXPECT_EQ(m_controller->currentTrack(), tempo.at(0));
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 2"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 0);
  EXPECT_FALSE(m_factory.players().at(1)->isAlive());
  EXPECT_TRUE(m_factory.newest().playing);
}

TEST_F(ControllerTest, SelectingTheCurrentModeFetchesAndRestarts) {
  giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  const QList<Track> newTracks = giveTracks(Mood::focus, 4);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->playlistTracks(), newTracks);
  EXPECT_EQ(m_controller->currentTrack(), newTracks.at(0));
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 4"_s);
  EXPECT_EQ(m_factory.players().size(), 3U);
}

TEST_F(ControllerTest, ConnectingTextStaysOnlyWithoutTracks) {
  for (const auto& [mood, text] : {std::pair(Mood::relaxation, u"Connecting relaxation atmosphere"_s),
                                   std::pair(Mood::focus, u"Connecting focus atmosphere"_s),
                                   std::pair(Mood::creative, u"Connecting creative atmosphere"_s),
                                   std::pair(Mood::tempo, u"Connecting tempo atmosphere"_s)}) {
    m_controller->selectMood(mood);
    EXPECT_EQ(m_controller->statusDetail(), text);
    EXPECT_EQ(m_controller->currentMood(), mood);
  }
}

TEST_F(ControllerTest, EmptyModeBeforeAnythingPlayed) {
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->currentTrack(), std::nullopt);
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 3"_s);
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_log->events(), (Events{"provider: playableTracks focus", "provider: displayEntries focus"}));
}

TEST_F(ControllerTest, EmptyModeLeavesTheEarlierTrackPlaying) {
  const QList<Track> tracks = giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  m_controller->selectMood(Mood::tempo);
  EXPECT_EQ(m_controller->currentMood(), Mood::tempo);
  EXPECT_TRUE(m_controller->playlistTracks().isEmpty());
  EXPECT_TRUE(m_controller->playlistEntries().isEmpty());
  EXPECT_EQ(m_controller->statusDetail(), u"Connecting tempo atmosphere"_s);
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(1));
  EXPECT_EQ(m_controller->currentVisualIndex(), 1);
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_TRUE(m_factory.newest().playing);
}

TEST_F(ControllerTest, EmptyPlaylistHasNoNextAndNoPrevious) {
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  m_controller->playNextTrack();
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_log->events(), Events{});
}

TEST_F(ControllerTest, EndOfATrackWithAnEmptyPlaylistDoesNothing) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_controller->selectMood(Mood::tempo);
  m_log->take();
  recordSignals();
  finishTrack();
  EXPECT_EQ(m_log->events(), Events{"mainThread: async"});
}

TEST_F(ControllerTest, BeforeAnyModeNextAndPreviousDoNothing) {
  recordSignals();
  m_controller->playNextTrack();
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_log->events(), Events{});
}

TEST_F(ControllerTest, NextWrapsFromTheLastToTheFirst) {
  const QList<Track> tracks = giveTracks(Mood::focus, 16);
  m_controller->selectMood(Mood::focus);
  for (int position = 2; position <= 16; ++position) {
    m_controller->playNextTrack();
    EXPECT_EQ(m_controller->playlistPositionText(), u"%1 / 16"_s.arg(position));
    EXPECT_EQ(m_controller->currentVisualIndex(), position - 1);
    EXPECT_EQ(m_controller->currentTrack(), tracks.at(position - 1));
  }
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 16"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 0);
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(0));
}

TEST_F(ControllerTest, PreviousWrapsFromTheFirstToTheLast) {
  const QList<Track> tracks = giveTracks(Mood::focus, 16);
  m_controller->selectMood(Mood::focus);
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"16 / 16"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 15);
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(15));
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"15 / 16"_s);
}

TEST_F(ControllerTest, PreviousChangesTheTrackHoweverLateInIt) {
  giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  m_factory.newest().currentTime = 100;
  tick();
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 3"_s);
}

TEST_F(ControllerTest, OneTrackIsReloadedByNextAndPrevious) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 1"_s);
  EXPECT_EQ(m_factory.players().size(), 2U);
  m_controller->playPreviousTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 1"_s);
  EXPECT_EQ(m_factory.players().size(), 3U);
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_FALSE(m_factory.players().at(0)->isAlive());
  EXPECT_FALSE(m_factory.players().at(1)->isAlive());
}

TEST_F(ControllerTest, EndOfATrackStartsTheNext) {
  const QList<Track> tracks = giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  finishTrack();
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(1));
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_TRUE(m_factory.newest().playing);
}

TEST_F(ControllerTest, EndOfTheLastTrackStartsTheFirst) {
  const QList<Track> tracks = giveTracks(Mood::focus, 16);
  m_controller->selectMood(Mood::focus);
  m_controller->playPreviousTrack();
  finishTrack();
  EXPECT_EQ(m_controller->playlistPositionText(), u"1 / 16"_s);
  EXPECT_EQ(m_controller->currentVisualIndex(), 0);
  EXPECT_EQ(m_controller->currentTrack(), tracks.at(0));
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
}

TEST_F(ControllerTest, AFileThatBreaksOffCountsAsEnded) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().finishPlaying(false);
  m_mainThread.runAll();
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 2"_s);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
}

// The end was told before the user chose something else: it still advances, whatever is current by then.
TEST_F(ControllerTest, EndOfAnEarlierTrackAdvancesToo) {
  giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().finishPlaying();
  m_controller->playNextTrack();
  m_mainThread.runAll();
  EXPECT_EQ(m_controller->playlistPositionText(), u"3 / 3"_s);
}

TEST_F(ControllerTest, IsPlayingStaysTrueBetweenTracks) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  int changes = 0;
  QObject::connect(m_controller.get(), &AudioPlayerController::isPlayingChanged, [&changes] { ++changes; });
  finishTrack();
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(changes, 0);
}

TEST_F(ControllerTest, ToggleBeforeAnythingPlayedDoesNothing) {
  recordSignals();
  m_controller->togglePlayback();
  EXPECT_EQ(m_log->events(), Events{});
  EXPECT_EQ(m_controller->statusDetail(), u"Ready"_s);
}

TEST_F(ControllerTest, ToggleWithoutPlayerLeavesTheStatusAlone) {
  giveList(Mood::focus, {makeTrack(Mood::focus, 1)});
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  m_controller->togglePlayback();
  EXPECT_EQ(m_log->events(), Events{});
  EXPECT_EQ(m_controller->statusDetail(), u"Missing bundled track"_s);
}

TEST_F(ControllerTest, TogglePausesAndResumes) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_controller->togglePlayback();
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Paused"_s);
  EXPECT_FALSE(m_factory.newest().playing);
  m_controller->togglePlayback();
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(m_factory.players().size(), 1U);
}

TEST_F(ControllerTest, ToggleGoesByThePlayersOwnState) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_factory.newest().playing = false;
  ASSERT_TRUE(m_controller->isPlaying());
  m_controller->togglePlayback();
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
}

TEST_F(ControllerTest, PauseAndResumeKeepTheTrack) {
  giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  m_controller->togglePlayback();
  EXPECT_EQ(m_controller->currentVisualIndex(), 1);
  m_controller->togglePlayback();
  EXPECT_EQ(m_controller->currentVisualIndex(), 1);
  EXPECT_EQ(m_controller->playlistPositionText(), u"2 / 3"_s);
}

TEST_F(ControllerTest, NextAndPreviousStartEvenWhilePaused) {
  giveTracks(Mood::focus, 3);
  m_controller->selectMood(Mood::focus);
  m_controller->togglePlayback();
  m_controller->playNextTrack();
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  EXPECT_TRUE(m_factory.newest().playing);
  m_controller->togglePlayback();
  m_controller->playPreviousTrack();
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_TRUE(m_factory.newest().playing);
}

TEST_F(ControllerTest, VolumeWithoutPlayerWaitsForTheNext) {
  recordSignals();
  m_controller->setVolume(0.3);
  EXPECT_EQ(m_controller->volume(), 0.3);
  EXPECT_EQ(m_log->events(), (Events{"objectWillChange", "volume 0.3"}));
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_factory.newest().volume, 0.3F);
}

TEST_F(ControllerTest, NewPlayersStartAtTheInitialVolume) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_factory.newest().volume, 0.65F);
}

TEST_F(ControllerTest, VolumeIsStoredThenApplied) {
  giveTracks(Mood::focus, 2);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  m_controller->setVolume(0.25);
  m_controller->setVolume(0.25);
  EXPECT_EQ(m_log->events(), (Events{"objectWillChange", "volume 0.25", "player 1: setVolume 0.25",
                                     // An equal value is announced and applied all the same.
                                     "objectWillChange", "player 1: setVolume 0.25"}));
  m_controller->playNextTrack();
  EXPECT_EQ(m_factory.newest().volume, 0.25F);
}

TEST_F(ControllerTest, VolumeIsRoundedToSinglePrecisionOnlyForThePlayer) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_controller->setVolume(0.1);
  EXPECT_EQ(m_controller->volume(), 0.1);
  EXPECT_EQ(m_factory.newest().volume, 0.1F);
}

TEST_F(ControllerTest, VolumeIsNotClamped) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_controller->setVolume(-2.5);
  EXPECT_EQ(m_controller->volume(), -2.5);
  EXPECT_EQ(m_factory.newest().volume, -2.5F);
  m_controller->setVolume(40);
  EXPECT_EQ(m_controller->volume(), 40);
  EXPECT_EQ(m_factory.newest().volume, 40.0F);
}

TEST_F(ControllerTest, VolumeCanBeSetByName) {
  EXPECT_TRUE(m_controller->setProperty("volume", 0.5));
  EXPECT_EQ(m_controller->volume(), 0.5);
}

TEST_F(ControllerTest, DestroyingItReleasesThePlayer) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_controller.reset();
  EXPECT_FALSE(m_factory.newest().isAlive());
}

}  // namespace
}  // namespace mireval
