#include "AudioFiles.h"
#include "MonitorRecorder.h"
#include "SoundServer.h"

#include "fakes/FakeNotices.h"
#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Counts the end-of-playback calls.
class EndWatcher final : public AudioPlayerDelegate {
 public:
  void audioPlayerDidFinishPlaying(AudioPlayer&, bool successfully) override {
    m_successfully = successfully;
    ++m_calls;
  }

  int calls() const { return m_calls; }
  bool successfully() const { return m_successfully; }

 private:
  std::atomic<bool> m_successfully = false;
  std::atomic<int> m_calls = 0;
};

template <typename Condition>
bool waitUntil(Condition condition, Clock::duration limit) {
  const auto giveUp = Clock::now() + limit;
  while (!condition()) {
    if (Clock::now() > giveUp) {
      return false;
    }
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

void sleepFor(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

/// How many of this process's descriptors watch folders.
std::ptrdiff_t folderWatches() {
  return std::ranges::count_if(std::filesystem::directory_iterator("/proc/self/fd"), [](const auto& entry) {
    std::error_code gone;
    return std::filesystem::read_symlink(entry, gone) == "anon_inode:inotify";
  });
}

/// No call may wait for the server; this is far above what a busy machine adds and far below any time-out.
constexpr auto promptly = 400ms;

class PulseAudioPlayerTest : public testing::TestWithParam<SoundServer::Kind> {
 protected:
  PulseAudioPlayerTest() {
    for (const auto& [name, value] : server.environment()) {
      setenv(name.c_str(), value.c_str(), 1);
    }
    server.start();
    factory.warmUp();
  }

  std::unique_ptr<AudioPlayer> open(const std::filesystem::path& file, float volume = 1) {
    std::unique_ptr<AudioPlayer> player = factory.create(file, u"Title"_s).value();
    player->setDelegate(&ends);
    player->setVolume(volume);
    player->prepareToPlay();
    return player;
  }

  template <typename Call>
  static void expectPrompt(Call call) {
    const auto begin = Clock::now();
    call();
    EXPECT_LT(Clock::now() - begin, promptly);
  }

  bool isExact() const { return GetParam() == SoundServer::Kind::pulseAudio; }

  /// What the server's mixer shows: "corked" or "sounding" for each stream.
  std::vector<std::string> streams() const {
    const std::string list = server.control({"list", "sink-inputs"});
    std::vector<std::string> states;
    constexpr std::string_view key = "Corked: ";
    for (auto at = list.find(key); at != std::string::npos; at = list.find(key, at + 1)) {
      states.emplace_back(list.compare(at + key.size(), 3, "yes") == 0 ? "corked" : "sounding");
    }
    return states;
  }

  /// Seconds that the server itself may add or drop: without real-time priority, PipeWire skips a block of
  /// 21 ms now and then when the machine is busy.
  double serverSlack() const { return isExact() ? 0.01 : 0.15; }

  static constexpr auto keptUnused = 500ms;

  AudioFiles files;
  SoundServer server{GetParam()};
  EndWatcher ends;
  FakeNotices notices;
  PulseAudioPlayerFactory factory{notices, keptUnused};
};

/// Faults of a sink. On PulseAudio only: WirePlumber 0.4.13 crashes when a sink is destroyed under it, does
/// not let a playing sink be suspended, and after a restart has no sink to record from until playback is
/// back.
class PulseAudioPlayerSinkTest : public PulseAudioPlayerTest {};

TEST_P(PulseAudioPlayerTest, MakesAVolumeChangeHeardAtOnceAndWithoutAClick) {
  const auto player = open(files.tone(440, 6), 0.5F);
  const MonitorRecorder recorder(server);
  player->play();
  sleepFor(1.5);
  EXPECT_NEAR(recorder.recording().trimmed().part(0.2, 1).levelDb(), -15.05 - 6.02, 0.5);
  const std::size_t before = recorder.frames();
  expectPrompt([&] { player->setVolume(0.25F); });
  EXPECT_FLOAT_EQ(player->volume(), 0.25F);
  sleepFor(1.2);
  const Recording after = recorder.recordingFrom(before);
  EXPECT_NEAR(after.part(0.3, 0.7).levelDb(), -15.05 - 12.04, 0.5);
  EXPECT_LT(after.longestSilence(), serverSlack());
  // A 440 Hz tone of this level moves by at most 0.0078 from one frame to the next.
  const std::vector<float> side = after.channel(0);
  double jump = 0;
  for (std::size_t i = 1; i < side.size(); ++i) {
    jump = std::max(jump, std::abs(static_cast<double>(side[i]) - side[i - 1]));
  }
  if (isExact()) {
    EXPECT_LT(jump, 0.01);
  }
  // The samples are scaled; the server's own volume is the user's.
  EXPECT_NE(server.control({"list", "sink-inputs"}).find("100%"), std::string::npos);
  for (const auto& [wanted, nearest] : {std::pair(7.0F, 1.0F), {-1.0F, 0.0F}, {std::nanf(""), 0.0F}}) {
    player->setVolume(wanted);
    EXPECT_FLOAT_EQ(player->volume(), nearest);
  }
}

TEST_P(PulseAudioPlayerTest, PlaysTenSecondsAsTenSecondsAndSaysWhenTheLastFrameWasHeard) {
  const auto player = open(files.tone(440, 10));
  const MonitorRecorder recorder(server);
  EXPECT_DOUBLE_EQ(player->duration(), 10);
  player->play();
  EXPECT_TRUE(player->isPlaying());
  ASSERT_TRUE(waitUntil([&] { return ends.calls() > 0; }, 20s));
  const double recorded = recorder.recording().seconds();
  sleepFor(0.5);
  const Recording all = recorder.recording();
  EXPECT_NEAR(all.trimmed().seconds(), 10.0, serverSlack());
  EXPECT_LT(all.longestSilence(), serverSlack());
  const Recording sound = all.trimmed().part(0.2, 1);
  EXPECT_GT(sound.shareOfTone(440, 0), 0.98);
  EXPECT_NEAR(sound.levelDb(0), -15.05, 0.5);
  EXPECT_NEAR(sound.levelDb(1), -15.05, 0.5);
  const double silenceAfter = all.seconds() - all.trimmed().seconds();
  EXPECT_GT(silenceAfter, 0.3);
  // At the call everything had been recorded, but for what is on its way to the recorder.
  EXPECT_NEAR(recorded, all.seconds() - 0.5, 0.1);
  EXPECT_TRUE(ends.successfully());
  EXPECT_FALSE(player->isPlaying());
  EXPECT_NEAR(player->currentTime(), 10.0, 1e-6);
  EXPECT_EQ(ends.calls(), 1);
}

TEST_P(PulseAudioPlayerTest, IsSilentInAPauseAndResumesAtTheNextSample) {
  const auto file = files.noise(3);
  const auto player = open(file);
  const MonitorRecorder recorder(server);
  player->play();
  sleepFor(0.8);
  player->pause();
  EXPECT_FALSE(player->isPlaying());
  sleepFor(0.2);
  const std::size_t paused = recorder.frames();
  const double position = player->currentTime();
  sleepFor(0.7);
  EXPECT_EQ(player->currentTime(), position);
  EXPECT_EQ(recorder.recordingFrom(paused).peak(), 0);
  player->play();
  player->pause();
  player->play();
  ASSERT_TRUE(waitUntil([&] { return ends.calls() > 0; }, 10s));
  sleepFor(0.3);

  // Without the pause, what was heard is the file.
  Recording heard;
  const Recording all = recorder.recording();
  for (std::size_t i = 0; i < all.frames(); ++i) {
    if (all.samples[i * 2] != 0 || all.samples[i * 2 + 1] != 0) {
      heard.samples.insert(heard.samples.end(), {all.samples[i * 2], all.samples[i * 2 + 1]});
    }
  }
  Recording reference = files.decoded(file).part(0, 3);
  for (float& sample : reference.samples) {
    // As the stream's sixteen bits hold it.
    sample = std::nearbyint(std::clamp(sample * 32768.0F, -32768.0F, 32767.0F)) / 32768.0F;
  }
  EXPECT_NEAR(heard.seconds(), 3.0, serverSlack());
  if (isExact()) {
    EXPECT_EQ(heard.trimmed().samples, reference.trimmed().samples);
  }
  EXPECT_EQ(ends.calls(), 1);
}

TEST_P(PulseAudioPlayerTest, TellsAPositionThatOnlyGrowsAndFollowsTheClock) {
  const auto player = open(files.tone(440, 4));
  EXPECT_EQ(player->currentTime(), 0);
  player->play();
  const auto begin = Clock::now();
  double last = 0;
  while (Clock::now() - begin < 2s) {
    const double now = player->currentTime();
    EXPECT_GE(now, last);
    last = now;
    std::this_thread::sleep_for(10ms);
  }
  const double passed = std::chrono::duration<double>(Clock::now() - begin).count();
  EXPECT_NEAR(player->currentTime(), passed, 0.25);
  EXPECT_LE(player->currentTime(), 4);
}

TEST_P(PulseAudioPlayerTest, PlaysAShortFileWholeAndThenOnceMoreAsLongAsItIsThere) {
  const auto file = files.tone(880, 0.2);
  const auto player = open(file);
  const MonitorRecorder recorder(server);
  player->play();
  ASSERT_TRUE(waitUntil([&] { return ends.calls() == 1; }, 5s));
  sleepFor(0.3);
  EXPECT_NEAR(recorder.recording().trimmed().seconds(), 0.2, 0.01);

  const std::size_t before = recorder.frames();
  player->play();
  EXPECT_TRUE(player->isPlaying());
  ASSERT_TRUE(waitUntil([&] { return ends.calls() == 2; }, 5s));
  sleepFor(0.3);
  EXPECT_NEAR(recorder.recordingFrom(before).trimmed().seconds(), 0.2, 0.01);
  EXPECT_EQ(ends.calls(), 2);
  EXPECT_TRUE(ends.successfully());

  std::filesystem::remove(file);
  player->play();
  EXPECT_EQ(ends.calls(), 3);
  EXPECT_FALSE(ends.successfully());
  EXPECT_FALSE(player->isPlaying());
}

TEST_P(PulseAudioPlayerTest, PlaysMonoOnBothSidesAndOtherRatesAtTheirPitch) {
  const auto player = open(files.tone(440, 2, {.sampleRate = 22050, .channels = 1}));
  const MonitorRecorder recorder(server);
  player->play();
  sleepFor(1.5);
  const Recording sound = recorder.recording().trimmed().part(0.2, 1);
  EXPECT_GT(sound.shareOfTone(440, 0), 0.98);
  EXPECT_GT(sound.shareOfTone(440, 1), 0.98);
  EXPECT_NEAR(sound.levelDb(0), -15.05, 0.5);
  EXPECT_NEAR(sound.levelDb(1), -15.05, 0.5);
}

TEST_P(PulseAudioPlayerTest, IsSilentOnceDestroyedAndCallsNobody) {
  const auto file = files.tone(440, 0.4);
  const MonitorRecorder recorder(server);
  for (int wait = 0; wait < 600; wait += 50) {
    auto player = open(file);
    player->play();
    std::this_thread::sleep_for(std::chrono::milliseconds(wait));
    expectPrompt([&] { player.reset(); });
    const int calls = ends.calls();
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(ends.calls(), calls);
  }
  auto prepared = open(file);
  expectPrompt([&] { prepared.reset(); });
  sleepFor(0.3);
  const std::size_t before = recorder.frames();
  sleepFor(0.5);
  EXPECT_EQ(recorder.recordingFrom(before).peak(), 0);
  // All that is left behind on the server is the stream that is kept ready.
  EXPECT_TRUE(waitUntil([&] { return streams() == std::vector<std::string>{"corked"}; }, 3s));
}

TEST_P(PulseAudioPlayerTest, TakesTheSoundFromAnotherPlayerWhichResumesWhereItWas) {
  const auto second = open(files.tone(1000, 30));
  const auto first = open(files.tone(440, 30));
  first->play();
  sleepFor(1);
  const auto third = factory.create(files.folder() / "tone-1000-30-44100-2.m4a", {});
  EXPECT_FALSE(factory.create(files.folder() / "none.m4a", {}));
  EXPECT_TRUE(first->isPlaying());
  second->play();
  EXPECT_FALSE(first->isPlaying());
  EXPECT_LT(second->currentTime(), 0.2);
  const double position = first->currentTime();
  EXPECT_NEAR(position, 1, 0.3);
  const MonitorRecorder recorder(server);
  sleepFor(0.8);
  EXPECT_EQ(streams(), std::vector<std::string>{"sounding"});
  EXPECT_GT(recorder.recording().part(0.3, 0.4).shareOfTone(1000), 0.98);
  EXPECT_EQ(first->currentTime(), position);

  second->pause();
  first->play();
  sleepFor(0.2);
  const std::size_t before = recorder.frames();
  sleepFor(0.8);
  EXPECT_GT(recorder.recordingFrom(before).part(0.1, 0.6).shareOfTone(440), 0.98);
  EXPECT_NEAR(first->currentTime(), position + 1, 0.3);
  EXPECT_EQ(streams(), std::vector<std::string>{"sounding"});
  EXPECT_EQ(ends.calls(), 0);
}

TEST_P(PulseAudioPlayerTest, LosesNoFrameBetweenTwoTracks) {
  // Of one kind and of two: these need two streams.
  for (const int secondRate : {44100, 48000}) {
    const auto firstFile = files.tone(440, 1);
    const auto secondFile = files.tone(1000, 1, {.sampleRate = secondRate});
    const int endsBefore = ends.calls();
    auto player = open(firstFile);
    const MonitorRecorder recorder(server);
    player->play();
    ASSERT_TRUE(waitUntil([&] { return ends.calls() == endsBefore + 1; }, 5s));
    auto next = open(secondFile);
    next->play();
    player = std::move(next);
    ASSERT_TRUE(waitUntil([&] { return ends.calls() == endsBefore + 2; }, 5s));
    EXPECT_NEAR(player->currentTime(), 1, 1e-6);
    sleepFor(0.4);
    const Recording sound = recorder.recording().trimmed();
    EXPECT_LT(sound.longestSilence(), isExact() ? 0.001 : serverSlack());
    // Two streams may sound together for the time by which the end is told early.
    EXPECT_NEAR(sound.seconds(), 2, serverSlack() + (secondRate == 44100 ? 0 : 0.05));
    EXPECT_GT(sound.part(0.5, 0.45).shareOfTone(440), 0.95);
    EXPECT_GT(sound.part(sound.seconds() - 0.95, 0.9).shareOfTone(1000), 0.95);
  }
}

TEST_P(PulseAudioPlayerTest, PlaysOnOneStreamThatIsReadyBeforeAndGoesAWhileAfter) {
  ASSERT_TRUE(waitUntil([&] { return streams() == std::vector<std::string>{"corked"}; }, 5s));
  factory.coolDown();
  ASSERT_TRUE(waitUntil([&] { return streams().empty(); }, 5s));

  factory.warmUp();
  const auto player = open(files.tone(440, 30));
  player->play();
  factory.coolDown();
  sleepFor(1);
  EXPECT_TRUE(player->isPlaying());
  EXPECT_EQ(streams(), std::vector<std::string>{"sounding"});
  player->pause();
  const double position = player->currentTime();
  EXPECT_NEAR(position, 1, 0.3);
  // The paused player's stream goes, too, and the player does not mind.
  ASSERT_TRUE(waitUntil([&] { return streams().empty(); }, 5s));
  EXPECT_EQ(player->currentTime(), position);
  player->play();
  sleepFor(1);
  EXPECT_NEAR(player->currentTime(), position + 1, 0.3);
  EXPECT_EQ(streams(), std::vector<std::string>{"sounding"});
}

// Their ends are told before they are heard, but no sooner after one another than they last.
TEST_P(PulseAudioPlayerTest, PlaysTheShortestTracksAtTheirPace) {
  const auto file = files.tone(440, 0.06);
  std::unique_ptr<AudioPlayer> player;
  const MonitorRecorder recorder(server);
  constexpr int tracks = 20;
  for (int i = 0; i < tracks; ++i) {
    auto next = open(file);
    next->play();
    player = std::move(next);
    ASSERT_TRUE(waitUntil([&] { return ends.calls() == i + 1; }, 5s));
  }
  sleepFor(0.5);
  EXPECT_NEAR(recorder.recording().trimmed().seconds(), tracks * 0.06, isExact() ? 0.02 : 0.3);
}

TEST_P(PulseAudioPlayerTest, LetsTheDeviceSleepAfterTheLastTrack) {
  const auto player = open(files.tone(440, 0.5));
  player->play();
  ASSERT_TRUE(waitUntil([&] { return ends.calls() == 1; }, 5s));
  EXPECT_TRUE(waitUntil([&] { return streams() == std::vector<std::string>{"corked"}; }, 5s));
}

TEST_P(PulseAudioPlayerTest, IsMusicWithATitleForMixers) {
  const auto player = open(files.tone(440, 20));
  player->play();
  const auto lists = [&](const char* property) {
    return server.control({"list", "sink-inputs"}).find(property) != std::string::npos;
  };
  EXPECT_TRUE(waitUntil([&] { return lists("media.name = \"Title\""); }, 5s));
  EXPECT_TRUE(lists("media.role = \"music\"") || lists("media.role = \"Music\""));
  EXPECT_TRUE(lists("application.name = \"Mireval\""));
}

// The server restores volumes by role where nothing else is set, and wants music to make way for a call.
TEST_P(PulseAudioPlayerSinkTest, KeepsAVolumeOfItsOwnAndMakesWayForNobody) {
  server.control({"load-module", "module-stream-restore"});
  server.control({"load-module", "module-role-cork"});
  const auto play = [&](const std::string& role) {
    return ChildProcess({"sh", "-c", "exec pacat --raw --property=media.role=" + role + " /dev/zero"},
                        server.environment());
  };
  auto player = open(files.tone(440, 30));
  player->play();
  EXPECT_TRUE(waitUntil([&] { return player->currentTime() > 0.2; }, 5s));
  const ChildProcess other = play("music");
  EXPECT_TRUE(waitUntil(
      [&] {
        return std::ranges::count(server.control({"list", "short", "sink-inputs"}), '\n') == 2;
      },
      5s));
  const auto newest = [&] {
    const std::string inputs = server.control({"list", "short", "sink-inputs"});
    const std::string line = inputs.substr(inputs.rfind('\n', inputs.size() - 2) + 1);
    return line.substr(0, line.find('\t'));
  };
  server.control({"set-sink-input-volume", newest(), "10%"});
  player = open(files.tone(440, 30));
  player->play();
  EXPECT_TRUE(waitUntil([&] { return player->currentTime() > 0.2; }, 5s));
  const MonitorRecorder recorder(server);
  sleepFor(0.5);
  EXPECT_NEAR(recorder.recording().trimmed().part(0.1, 0.3).levelDb(), -15.05, 0.5);

  const ChildProcess call = play("phone");
  const double before = player->currentTime();
  sleepFor(1.5);
  EXPECT_TRUE(player->isPlaying());
  EXPECT_GT(player->currentTime(), before + 1);
}

TEST_P(PulseAudioPlayerTest, LeavesNothingBehindWhenManyArePlayedInARow) {
  const auto file = files.tone(440, 2);
  std::unique_ptr<AudioPlayer> player;
  for (int i = 0; i < 50; ++i) {
    player = open(file);
    player->play();
  }
  EXPECT_TRUE(waitUntil(
      [&] {
        const std::string inputs = server.control({"list", "short", "sink-inputs"});
        return std::ranges::count(inputs, '\n') == 1;
      },
      15s));
}

TEST_P(PulseAudioPlayerTest, GoesOnWhenTheServerIsRestarted) {
  const auto player = open(files.tone(440, 30));
  player->play();
  sleepFor(1);
  server.kill();
  const double lost = player->currentTime();
  for (int i = 0; i < 20; ++i) {
    expectPrompt([&] { EXPECT_GE(player->currentTime(), lost - 1e-9); });
    expectPrompt([&] { player->setVolume(0.5F); });
    expectPrompt([&] { player->pause(); });
    expectPrompt([&] { player->play(); });
    EXPECT_TRUE(player->isPlaying());
    sleepFor(0.02);
  }
  EXPECT_TRUE(factory.create(files.tone(440, 1), {}));
  server.start();
  const MonitorRecorder recorder(server);
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().trimmed().seconds() > 1; }, 15s));
  EXPECT_NEAR(recorder.recording().trimmed().part(0.2, 0.6).levelDb(), -15.05 - 6.02, 0.5);
  EXPECT_LT(player->currentTime(), lost + 8);
  EXPECT_GT(player->currentTime(), lost);
  EXPECT_EQ(ends.calls(), 0);
}

TEST_P(PulseAudioPlayerTest, IsHeardSoonAfterAServerThatWasAwayForLongAndWatchesForItOnlyMeanwhile) {
  const auto player = open(files.tone(440, 30));
  player->play();
  sleepFor(0.5);
  EXPECT_EQ(folderWatches(), 0);
  server.interrupt();
  EXPECT_TRUE(waitUntil([] { return folderWatches() == 1; }, 2s));
  player->pause();
  EXPECT_EQ(folderWatches(), 0);
  player->play();
  // By now the player tries every five seconds only.
  sleepFor(4.2);
  EXPECT_EQ(folderWatches(), 1);
  server.resume();
  const MonitorRecorder recorder(server);
  EXPECT_TRUE(waitUntil([&] { return recorder.recording().peak() > 0; }, 1500ms));
  EXPECT_EQ(folderWatches(), 0);
}

TEST_P(PulseAudioPlayerSinkTest, LosesAndRepeatsNextToNothingWhenTheServerIsRestarted) {
  // The pitch tells the place: 400 Hz at the start, 100 Hz more each second.
  const auto file = files.make(
      "sweep.m4a",
      {"-f", "lavfi", "-i", "aevalsrc=0.25*sin(2*PI*(400*t+50*t*t)):s=44100:d=20", "-b:a", "160k"});
  const auto player = open(file);
  player->play();
  sleepFor(2.3);
  const double position = player->currentTime();
  server.kill();
  server.start();
  const MonitorRecorder recorder(server);
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().trimmed().seconds() > 0.5; }, 15s));
  const std::vector<float> side = recorder.recording().trimmed().part(0, 0.05).channel(0);
  int crossings = 0;
  for (std::size_t i = 1; i < side.size(); ++i) {
    crossings += (side[i - 1] < 0) != (side[i] < 0) ? 1 : 0;
  }
  const double frequency = crossings / 2.0 / 0.05;
  const double resumedAt = (frequency - 400) / 100 - 0.025;
  EXPECT_NEAR(resumedAt, position, 0.4);
}

TEST_P(PulseAudioPlayerTest, StaysPausedWhenTheServerIsRestartedAndResumesThere) {
  const auto player = open(files.tone(440, 30));
  player->play();
  sleepFor(1);
  player->pause();
  const double position = player->currentTime();
  server.kill();
  server.start();
  const MonitorRecorder recorder(server);
  sleepFor(1);
  EXPECT_EQ(recorder.recording().peak(), 0);
  EXPECT_EQ(player->currentTime(), position);
  player->play();
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().peak() > 0; }, 5s));
  sleepFor(0.5);
  EXPECT_NEAR(player->currentTime(), position + 0.5, 0.3);
}

TEST_P(PulseAudioPlayerSinkTest, GoesOnWhenItsSinkComesBack) {
  const auto player = open(files.tone(440, 30));
  player->play();
  sleepFor(1);
  server.control({"unload-module", "module-null-sink"});
  sleepFor(0.5);
  EXPECT_TRUE(player->isPlaying());
  expectPrompt([&] { player->setVolume(0.5F); });
  server.control({"load-module", "module-null-sink", "sink_name=null", "norewinds=1", "format=float32le"});
  const MonitorRecorder recorder(server);
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().trimmed().seconds() > 1; }, 10s));
  EXPECT_NEAR(recorder.recording().trimmed().part(0.2, 0.6).levelDb(), -15.05 - 6.02, 0.5);
  EXPECT_EQ(ends.calls(), 0);
}

TEST_P(PulseAudioPlayerSinkTest, IsHeardSoonWhenASinkComesAfterLong) {
  const auto player = open(files.tone(440, 30));
  player->play();
  sleepFor(1);
  server.control({"unload-module", "module-null-sink"});
  // By now the player tries every five seconds only.
  sleepFor(4.2);
  EXPECT_TRUE(player->isPlaying());
  server.control({"load-module", "module-null-sink", "sink_name=null", "norewinds=1", "format=float32le"});
  const MonitorRecorder recorder(server);
  EXPECT_TRUE(waitUntil([&] { return recorder.recording().peak() > 0; }, 1500ms));
}

TEST_P(PulseAudioPlayerTest, NeverWaitsForAFrozenServerAndGoesOnAfterwards) {
  auto player = open(files.tone(440, 60));
  auto abandoned = open(files.tone(440, 5));
  abandoned->play();
  player->play();
  sleepFor(1);
  server.freeze();
  expectPrompt([&] { abandoned.reset(); });
  const auto begin = Clock::now();
  double last = player->currentTime();
  while (Clock::now() - begin < 3s) {
    expectPrompt([&] { player->setVolume(last > 1.5 ? 0.5F : 0.6F); });
    expectPrompt([&] { player->pause(); });
    expectPrompt([&] { player->play(); });
    expectPrompt([&] {
      const double now = player->currentTime();
      EXPECT_GE(now, last);
      last = now;
    });
    expectPrompt([&] {
      const auto other = factory.create(files.folder() / "tone-440-60-44100-2.m4a", {}).value();
      other->prepareToPlay();
      other->play();
    });
    std::this_thread::sleep_for(100ms);
  }
  EXPECT_LE(last, 1 + 3 + 2);
  // The last of the others has taken the sound.
  EXPECT_FALSE(player->isPlaying());
  player->play();
  server.thaw();
  player->setVolume(1);
  const MonitorRecorder recorder(server);
  // The server first catches up on everything that it was asked for.
  const auto lastSecond = [&] {
    const Recording all = recorder.recording().trimmed();
    return all.part(all.seconds() - 1, 1);
  };
  EXPECT_TRUE(
      waitUntil([&] { return lastSecond().seconds() > 0.9 && lastSecond().shareOfTone(440) > 0.95; }, 30s));
  EXPECT_TRUE(player->isPlaying());
  EXPECT_EQ(ends.calls(), 0);
  expectPrompt([&] { player.reset(); });
}

TEST_P(PulseAudioPlayerSinkTest, NoticesASinkThatStandsStillAndGoesOnWhenItMoves) {
  const auto player = open(files.tone(440, 60));
  player->play();
  sleepFor(1);
  const std::string stalled = server.control({"list", "short", "sink-inputs"});
  server.control({"suspend-sink", "null", "1"});
  // Longer than it takes to notice and to make a new stream.
  sleepFor(6.5);
  EXPECT_NE(server.control({"list", "short", "sink-inputs"}), stalled);
  EXPECT_TRUE(player->isPlaying());
  // The server may have taken the whole buffer, but the clock must not run on by itself.
  const double still = player->currentTime();
  EXPECT_LT(still, 1 + 2.5);
  sleepFor(0.5);
  EXPECT_NEAR(player->currentTime(), still, 0.01);
  server.control({"suspend-sink", "null", "0"});
  const MonitorRecorder recorder(server);
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().trimmed().seconds() > 1; }, 15s));
  EXPECT_GT(recorder.recording().trimmed().part(0.2, 0.6).shareOfTone(440), 0.95);
  EXPECT_EQ(ends.calls(), 0);
}

TEST_P(PulseAudioPlayerTest, RefusesABadFileWithAReason) {
  EXPECT_EQ(factory.create(files.folder() / "none.m4a", {}).error(), u"No such file or directory"_s);
}

TEST_P(PulseAudioPlayerTest, WaitsForAServerThatWasNeverThereAndSaysSoOnce) {
  server.kill();
  PulseAudioPlayerFactory late(notices);
  late.warmUp();
  EXPECT_TRUE(notices.said().empty());
  for (int press = 0; press < 3; ++press) {
    const auto player = late.create(files.tone(880, 30), {}).value();
    player->play();
    EXPECT_TRUE(player->isPlaying());
    sleepFor(0.3);
    EXPECT_EQ(player->currentTime(), 0);
  }
  const auto player = late.create(files.tone(440, 30), {}).value();
  player->prepareToPlay();
  player->play();
  player->pause();
  EXPECT_FALSE(player->isPlaying());
  player->play();
  sleepFor(1);
  EXPECT_EQ(notices.said(), std::vector<std::string>{"no sound server answers; the music waits for one"});
  server.start();
  const MonitorRecorder recorder(server);
  ASSERT_TRUE(waitUntil([&] { return recorder.recording().trimmed().seconds() > 1; }, 15s));
  EXPECT_NEAR(recorder.recording().trimmed().part(0.2, 0.6).shareOfTone(440), 1, 0.05);
  EXPECT_LT(player->currentTime(), 10);
  EXPECT_EQ(notices.said().size(), 1U);
}

TEST_P(PulseAudioPlayerTest, EndsEarlyWithATruncatedFile) {
  const auto player = open(files.truncated(0.5, true));
  const MonitorRecorder recorder(server);
  player->play();
  ASSERT_TRUE(waitUntil([&] { return ends.calls() == 1; }, 10s));
  EXPECT_GT(recorder.recording().trimmed().seconds(), 1);
  EXPECT_LT(player->currentTime(), 3.5);
}

INSTANTIATE_TEST_SUITE_P(PulseAudio, PulseAudioPlayerSinkTest, testing::Values(SoundServer::Kind::pulseAudio),
                         [](const auto&) { return "PulseAudio"; });

INSTANTIATE_TEST_SUITE_P(Servers, PulseAudioPlayerTest,
                         testing::Values(SoundServer::Kind::pulseAudio, SoundServer::Kind::pipeWire),
                         [](const auto& info) {
                           return info.param == SoundServer::Kind::pulseAudio ? "PulseAudio" : "PipeWire";
                         });

}  // namespace
}  // namespace mireval::test
