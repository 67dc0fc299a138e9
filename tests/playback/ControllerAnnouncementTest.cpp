#include "playback/ControllerFixture.h"

#include <functional>
#include <map>
#include <optional>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

std::string text(const std::optional<Mood>& mood) {
  return mood ? rawValue(*mood).toStdString() : "none";
}

std::string text(const std::optional<Track>& track) {
  return track ? track->title.toStdString() : "none";
}

std::string text(const QList<Track>& tracks) {
  std::string joined;
  for (const Track& track : tracks) {
    joined += track.title.toStdString() + ';';
  }
  return joined;
}

/// All twelve properties as text, in declaration order.
std::map<std::string, std::string> stateOf(const AudioPlayerController& c) {
  return {
      {"currentMood", text(c.currentMood())},
      {"currentTrack", text(c.currentTrack())},
      {"playlistTracks", text(c.playlistTracks())},
      {"playlistEntries", text(c.playlistEntries())},
      {"isPlaying", c.isPlaying() ? "true" : "false"},
      {"playlistPositionText", c.playlistPositionText().toStdString()},
      {"elapsedTimeText", c.elapsedTimeText().toStdString()},
      {"durationText", c.durationText().toStdString()},
      {"playbackProgress", eventNumber(c.playbackProgress()).toStdString()},
      {"statusDetail", c.statusDetail().toStdString()},
      {"currentVisualIndex", std::to_string(c.currentVisualIndex())},
      {"volume", eventNumber(c.volume()).toStdString()},
  };
}

/// Watches every signal and checks the contract: at an announcement nothing has been stored that was not
/// told; at a property's own signal exactly that property differs from the announced state.
class ControllerAnnouncementTest : public ControllerFixture {
 protected:
  using C = AudioPlayerController;

  void watch() {
    m_told = stateOf(*m_controller);
    QObject::connect(m_controller.get(), &C::objectWillChange, [this] {
      EXPECT_EQ(stateOf(*m_controller), m_told) << "stored before it was announced";
      m_announced = true;
    });
    const std::map<std::string, void (C::*)()> signalOf{
        {"currentMood", &C::currentMoodChanged},
        {"currentTrack", &C::currentTrackChanged},
        {"playlistTracks", &C::playlistTracksChanged},
        {"playlistEntries", &C::playlistEntriesChanged},
        {"isPlaying", &C::isPlayingChanged},
        {"playlistPositionText", &C::playlistPositionTextChanged},
        {"elapsedTimeText", &C::elapsedTimeTextChanged},
        {"durationText", &C::durationTextChanged},
        {"playbackProgress", &C::playbackProgressChanged},
        {"statusDetail", &C::statusDetailChanged},
        {"currentVisualIndex", &C::currentVisualIndexChanged},
        {"volume", &C::volumeChanged},
    };
    for (const auto& [name, changed] : signalOf) {
      QObject::connect(m_controller.get(), changed, [this, name = name] {
        EXPECT_TRUE(m_announced) << name << " was not announced";
        m_announced = false;
        auto expected = m_told;
        const auto now = stateOf(*m_controller);
        EXPECT_NE(now.at(name), m_told.at(name)) << name << " was told without a change";
        expected[name] = now.at(name);
        EXPECT_EQ(now, expected) << "more than " << name << " changed";
        m_told = now;
        ++m_changes[name];
      });
    }
  }

  void expectAllTold() const { EXPECT_EQ(stateOf(*m_controller), m_told) << "stored and never told"; }

  std::map<std::string, std::string> m_told;
  std::map<std::string, int> m_changes;
  bool m_announced = false;
};

TEST_F(ControllerAnnouncementTest, HoldsForEveryOperation) {
  giveTracks(Mood::focus, 3);
  giveTracks(Mood::tempo, 2);
  m_bundle.remove(u"PreviewAudio/focus-3.m4a"_s);
  watch();
  const std::vector<std::function<void()>> operations{
      [this] { m_controller->selectMood(Mood::focus); },
      [this] { m_factory.newest().currentTime = 30; },
      [this] { tick(); },
      [this] { m_controller->togglePlayback(); },
      [this] { m_controller->togglePlayback(); },
      [this] { m_controller->playNextTrack(); },
      [this] { finishTrack(); },  // the third file is missing
      [this] { m_controller->togglePlayback(); },
      [this] { m_controller->playPreviousTrack(); },
      [this] { m_controller->setVolume(0.2); },
      [this] { m_factory.failWith(u"refused"_s); },
      [this] { m_controller->selectMood(Mood::tempo); },
      [this] { m_factory.succeed(); },
      [this] { m_controller->selectMood(Mood::creative); },
      [this] { m_controller->selectMood(Mood::tempo); },
  };
  for (const auto& operation : operations) {
    operation();
    expectAllTold();
  }
  // Each of the twelve took part.
  EXPECT_EQ(m_changes.size(), stateOf(*m_controller).size());
}

TEST_F(ControllerAnnouncementTest, TheOldValueCanBeReadWhileANewOneIsAnnounced) {
  giveTracks(Mood::focus, 1);
  std::vector<std::string> seen;
  QObject::connect(m_controller.get(), &C::objectWillChange,
                   [this, &seen] { seen.push_back(m_controller->statusDetail().toStdString()); });
  m_controller->setVolume(0.5);
  EXPECT_EQ(seen, Events{"Ready"});
  seen.clear();
  m_controller->selectMood(Mood::focus);
  // Four writes up to the connecting text, five up to "Playing", three times.
  EXPECT_EQ(seen, (Events{"Ready", "Ready", "Ready", "Ready", "Connecting focus atmosphere",
                          "Connecting focus atmosphere", "Connecting focus atmosphere",
                          "Connecting focus atmosphere", "Connecting focus atmosphere", "Playing", "Playing",
                          "Playing"}));
}

TEST_F(ControllerAnnouncementTest, AnEqualValueIsAnnouncedButNotTold) {
  int announcements = 0;
  int changes = 0;
  QObject::connect(m_controller.get(), &C::objectWillChange, [&announcements] { ++announcements; });
  QObject::connect(m_controller.get(), &C::volumeChanged, [&changes] { ++changes; });
  m_controller->setVolume(0.65);
  EXPECT_EQ(announcements, 1);
  EXPECT_EQ(changes, 0);
  m_controller->setVolume(0.66);
  EXPECT_EQ(announcements, 2);
  EXPECT_EQ(changes, 1);
}

TEST_F(ControllerAnnouncementTest, ATickThatChangesNothingAnnouncesThreeWrites) {
  giveTracks(Mood::focus, 1);
  m_controller->selectMood(Mood::focus);
  m_log->take();
  recordSignals();
  tick();
  EXPECT_EQ(m_log->events(),
            (Events{"mainThread: async", "objectWillChange", "objectWillChange", "objectWillChange",
                    "bundle: CoverImages/focus-01.png",
                    "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1"}));
}

}  // namespace
}  // namespace mireval
