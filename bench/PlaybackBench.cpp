// Measures how soon sound follows the command to play, and how long the silence between two tracks is, for
// this player and its peers. All play the same files on the same server; the monitor of its null sink is
// recorded. Prints lines `server player figure median worst`, in milliseconds.

#include "MirevalPlayer.h"
#include "Peers.h"
#include "RemotePlayer.h"

#include "AudioFiles.h"
#include "MonitorRecorder.h"
#include "SoundServer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace mireval::bench {
namespace {

using namespace std::chrono_literals;
using Clock = test::MonitorRecorder::Clock;

constexpr int rounds = 9;
constexpr double firstTone = 440;
constexpr double secondTone = 1000;
// At the first track's end all players have long filled their buffers.
constexpr auto trackLength = 1s;
// Room for the latency, for the gap and for the start of the second track.
constexpr auto roomAfterFirstTrack = 600ms;

void waitFor(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values.at(values.size() / 2);
}

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

double seconds(Clock::duration time) {
  return std::chrono::duration<double>(time).count();
}

void print(const char* server, const Player& player, const char* figure, const std::vector<double>& values) {
  std::printf("%s %s %s %.1f %.1f\n", server, player.name().c_str(), figure, median(values),
              std::ranges::max(values));
  std::fflush(stdout);
}

/// The silence between the two tracks, in milliseconds. Throws when the second one was not heard.
double gapIn(const test::Recording& recording, const std::string& player) {
  // Players differ in how they start and stop.
  const double middle = seconds(trackLength) / 2;
  const test::Recording sound = recording.trimmed();
  const test::Recording change = sound.part(middle, sound.seconds() - middle - 0.1);
  if (change.part(change.seconds() - 0.05, 0.05).shareOfTone(secondTone) < 0.5) {
    throw std::runtime_error(player + " did not play the second file");
  }
  return change.longestSilence() * 1000;
}

void measure(Player& player, const test::SoundServer& server, const char* serverName) {
  const test::MonitorRecorder recorder(server, 5ms);
  std::vector<double> firstSample;
  std::vector<double> gap;
  for (int round = 0; round < rounds; ++round) {
    waitFor(200ms);
    const std::size_t before = recorder.frames();
    const auto begin = Clock::now();
    player.play();
    waitFor(trackLength + roomAfterFirstTrack);
    player.stop();
    const auto sound = recorder.firstSoundAfter(begin);
    if (!sound) {
      throw std::runtime_error(player.name() + " stayed silent");
    }
    firstSample.push_back(milliseconds(*sound - begin));
    gap.push_back(gapIn(recorder.recordingFrom(before), player.name()));
  }
  print(serverName, player, "first_sample", firstSample);
  print(serverName, player, "gap", gap);
}

void measureAll(test::SoundServer::Kind kind, const char* serverName) {
  const test::AudioFiles files;
  const auto& folder = files.folder();
  std::filesystem::create_directory(folder / "PreviewAudio");
  std::filesystem::rename(files.tone(firstTone, seconds(trackLength)),
                          folder / "PreviewAudio" / "focus-1.m4a");
  std::filesystem::rename(files.tone(secondTone, seconds(trackLength)),
                          folder / "PreviewAudio" / "focus-2.m4a");

  test::SoundServer server(kind);
  for (const auto& [name, value] : server.environment()) {
    setenv(name.c_str(), value.c_str(), 1);
  }
  server.start();
  {
    MirevalPlayer player(folder);
    measure(player, server, serverName);
  }
  for (auto& peer : describePeers(folder)) {
    RemotePlayer player(std::move(peer), server);
    measure(player, server, serverName);
  }
}

}  // namespace
}  // namespace mireval::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    using Kind = mireval::test::SoundServer::Kind;
    mireval::bench::measureAll(Kind::pulseAudio, "pulseaudio");
    mireval::bench::measureAll(Kind::pipeWire, "pipewire");
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "playback_bench: %s\n", failure.what());
    return 1;
  }
  return 0;
}
