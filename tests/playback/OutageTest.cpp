#include "fakes/FakeDebugOutput.h"
#include "fakes/FakeImageDecoder.h"
#include "fakes/FakeLibraryProvider.h"
#include "fakes/FakeMainThread.h"
#include "fakes/FakeNotices.h"
#include "fakes/FakeNowPlayingInfoCenter.h"
#include "fakes/FakeRemoteCommandCenter.h"
#include "fakes/FakeRunLoop.h"
#include "platform/linux/audio/AudioFiles.h"
#include "platform/linux/audio/MonitorRecorder.h"
#include "platform/linux/audio/PulseAudioPlayerFactory.h"
#include "platform/linux/audio/SoundServer.h"
#include "platform/qt/FolderResourceBundle.h"
#include "playback/AudioPlayerController.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <thread>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using test::AudioFiles;
using test::MonitorRecorder;
using test::SoundServer;

enum class Press { next, previous, otherMode, sameMode, pause, play };
constexpr std::array presses{Press::next,     Press::previous, Press::otherMode,
                             Press::sameMode, Press::pause,    Press::play};
constexpr std::array names{"next", "previous", "other mode", "same mode", "pause", "play"};

/// The pitch of each track, in Hz. "lost" has no file.
const std::map<QString, double> pitches{
    {u"first"_s, 500}, {u"second"_s, 900}, {u"third"_s, 1300}, {u"other"_s, 1700}};
const QList<QString> focus{u"first"_s, u"second"_s, u"lost"_s, u"third"_s};
const QList<QString> tempo{u"other"_s};

/// How long the server is away: a second, so that the tests end soon, or what is tried by hand.
Clock::duration outage() {
  const QByteArray seconds = qgetenv("MIREVAL_OUTAGE_SECONDS");
  return seconds.isEmpty() ? 1s : std::chrono::seconds(seconds.toInt());
}

/// What is to be seen and heard, if a button does the same with a server and without.
struct Expectation {
  QList<QString> playlist = focus;
  qsizetype index = 1;
  QString title = u"second"_s;
  QString loaded = u"second"_s;
  bool sounds = true;
  bool showsPlaying = true;

  void load(qsizetype at) {
    index = at;
    title = playlist.at(at);
    showsPlaying = pitches.contains(title);
    if (showsPlaying) {
      loaded = title;
      sounds = true;
    }
  }

  void toggle() {
    sounds = !sounds;
    showsPlaying = sounds;
  }

  void press(Press button) {
    switch (button) {
      case Press::next:
        load((index + 1) % playlist.size());
        break;
      case Press::previous:
        load((index + playlist.size() - 1) % playlist.size());
        break;
      case Press::otherMode:
        playlist = tempo;
        load(0);
        break;
      case Press::sameMode:
        load(0);
        break;
      case Press::pause:
        if (showsPlaying) {
          toggle();
        }
        break;
      case Press::play:
        if (!showsPlaying) {
          toggle();
        }
        break;
    }
  }
};

/// The controller with real players and a real sound server that goes and comes back.
class OutageTest : public testing::TestWithParam<SoundServer::Kind> {
 protected:
  OutageTest() {
    for (const auto& [name, value] : m_server.environment()) {
      setenv(name.c_str(), value.c_str(), 1);
    }
    const std::filesystem::path folder = m_files.folder() / "PreviewAudio";
    std::filesystem::create_directory(folder);
    for (const auto& [track, pitch] : pitches) {
      std::filesystem::rename(m_files.tone(pitch, 30), folder / (track.toStdString() + ".m4a"));
    }
    auto library = std::make_unique<FakeLibraryProvider>();
    library->setPlayableTracks(Mood::focus, tracks(Mood::focus, focus));
    library->setPlayableTracks(Mood::tempo, tracks(Mood::tempo, tempo));
    m_controller = AudioPlayerController::create(
        std::move(library),
        {m_bundle, m_factory, m_runLoop, m_mainThread, m_remote, m_nowPlaying, m_decoder, m_debug});
  }

  static QList<Track> tracks(Mood mood, const QList<QString>& titles) {
    QList<Track> tracks;
    for (const QString& title : titles) {
      Track track;
      track.mood = mood;
      track.title = title;
      track.resourceName = title;
      track.fileExtension = u"m4a"_s;
      tracks.append(track);
    }
    return tracks;
  }

  void press(Press button) {
    switch (button) {
      case Press::next:
        m_controller->playNextTrack();
        break;
      case Press::previous:
        m_controller->playPreviousTrack();
        break;
      case Press::otherMode:
        m_controller->selectMood(Mood::tempo);
        break;
      case Press::sameMode:
        m_controller->selectMood(m_controller->currentMood().value());
        break;
      case Press::pause:
        m_remote.pauseCommand().send();
        break;
      case Press::play:
        m_remote.playCommand().send();
        break;
    }
    m_mainThread.runAll();
  }

  void tick() {
    m_runLoop.tick();
    m_mainThread.runAll();
  }

  void startPlaying() {
    m_controller->selectMood(Mood::focus);
    m_controller->playNextTrack();
    const auto limit = Clock::now() + 10s;
    while (m_nowPlaying.nowPlayingInfo()->elapsedPlaybackSeconds < 0.1 && Clock::now() < limit) {
      std::this_thread::sleep_for(10ms);
      tick();
    }
    ASSERT_GE(m_nowPlaying.nowPlayingInfo()->elapsedPlaybackSeconds, 0.1);
  }

  /// The pitch of what the server plays within so long; nothing for silence.
  static std::optional<double> hear(const MonitorRecorder& recorder, Clock::duration patience) {
    constexpr std::size_t stretch = 44100 * 3 / 10;
    const auto limit = Clock::now() + patience;
    while (Clock::now() < limit) {
      std::this_thread::sleep_for(50ms);
      const std::size_t frames = recorder.frames();
      if (frames < stretch) {
        continue;
      }
      const test::Recording heard = recorder.recordingFrom(frames - stretch);
      for (const auto& [track, pitch] : pitches) {
        if (heard.levelDb() > -30 && heard.shareOfTone(pitch) > 0.9) {
          return pitch;
        }
      }
    }
    return std::nullopt;
  }

  void expectAfterOutage(const std::vector<Press>& buttons) {
    std::string name;
    Expectation expected;
    for (const Press button : buttons) {
      name += std::string(name.empty() ? "" : ", ") + names.at(static_cast<std::size_t>(button));
      expected.press(button);
    }
    SCOPED_TRACE(name);
    ASSERT_NO_FATAL_FAILURE(startPlaying());

    m_server.interrupt();
    const auto back = Clock::now() + outage();
    for (const Press button : buttons) {
      std::this_thread::sleep_for(200ms);
      press(button);
      tick();
    }
    std::this_thread::sleep_until(back);
    m_server.resume();

    const MonitorRecorder recorder(m_server);
    // A player that is to sound is back within its second attempt after the outage.
    const std::optional<double> pitch = hear(recorder, expected.sounds ? 10s : 1500ms);
    tick();
    EXPECT_EQ(pitch, expected.sounds ? std::optional(pitches.at(expected.loaded)) : std::nullopt);
    EXPECT_EQ(m_controller->currentTrack()->title, expected.title);
    EXPECT_EQ(m_controller->isPlaying(), expected.showsPlaying);
    EXPECT_EQ(m_controller->playlistPositionText(),
              u"%1 / %2"_s.arg(expected.index + 1).arg(expected.playlist.size()));
    ASSERT_TRUE(m_nowPlaying.nowPlayingInfo());
    EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->title, expected.title);
    EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->playbackRate, expected.showsPlaying ? 1 : 0);
  }

  AudioFiles m_files;
  SoundServer m_server{GetParam()};
  FolderResourceBundle m_bundle{m_files.folder()};
  FakeNotices m_notices;
  PulseAudioPlayerFactory m_factory{m_notices};
  FakeRunLoop m_runLoop;
  FakeMainThread m_mainThread;
  FakeRemoteCommandCenter m_remote;
  FakeNowPlayingInfoCenter m_nowPlaying;
  FakeImageDecoder m_decoder;
  FakeDebugOutput m_debug;
  std::shared_ptr<AudioPlayerController> m_controller;
};

TEST_P(OutageTest, WhatIsPressedMeanwhileIsShownToldAndHeard) {
  m_server.start();
  for (const Press first : presses) {
    expectAfterOutage({first});
    for (const Press second : presses) {
      if (outage() == 1s) {
        expectAfterOutage({first, second});
      }
    }
  }
}

TEST_P(OutageTest, AStartWithoutAServerIsAnOutageToo) {
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);
  m_controller->playNextTrack();
  press(Press::pause);
  press(Press::play);
  m_server.start();
  const MonitorRecorder recorder(m_server);
  EXPECT_EQ(hear(recorder, 10s), pitches.at(u"second"_s));
  EXPECT_EQ(m_controller->currentTrack()->title, u"second"_s);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_notices.said().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Servers, OutageTest,
                         testing::Values(SoundServer::Kind::pulseAudio, SoundServer::Kind::pipeWire),
                         [](const auto& info) {
                           return info.param == SoundServer::Kind::pulseAudio ? "PulseAudio" : "PipeWire";
                         });

}  // namespace
}  // namespace mireval
