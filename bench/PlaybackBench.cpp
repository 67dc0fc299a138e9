// Measures how soon sound follows the command to play, and how long the silence between two tracks is, for
// this player and its peers. All play the same files on the same server; the monitor of its null sink is
// recorded. Prints lines of the form `server player first_sample_ms median worst gap_ms median worst`.

#include "Players.h"

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
#include <vector>

namespace mireval::bench {
namespace {

using namespace std::chrono_literals;
using Clock = test::MonitorRecorder::Clock;

constexpr int rounds = 9;
constexpr double trackSeconds = 2;

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

void measure(Player& player, const test::SoundServer& server, const char* serverName) {
  const test::MonitorRecorder recorder(server, 5ms);
  std::vector<double> firstSample;
  std::vector<double> gap;
  for (int round = 0; round < rounds; ++round) {
    waitFor(400ms);
    const std::size_t before = recorder.frames();
    const auto begin = Clock::now();
    player.play();
    waitFor(std::chrono::milliseconds(static_cast<int>(2 * trackSeconds * 1000) + 500));
    player.stop();
    const auto sound = recorder.firstSoundAfter(begin);
    if (!sound) {
      throw std::runtime_error(std::string(player.name()) + " stayed silent");
    }
    firstSample.push_back(milliseconds(*sound - begin));
    // The first and the second track only; players differ in what follows.
    gap.push_back(recorder.recordingFrom(before).trimmed().part(0.5, 2 * trackSeconds - 1).longestSilence() *
                  1000);
  }
  std::printf("%-10s %-8s first_sample_ms %6.1f %6.1f gap_ms %6.1f %6.1f\n", serverName, player.name(),
              median(firstSample), std::ranges::max(firstSample), median(gap), std::ranges::max(gap));
  std::fflush(stdout);
}

void measureAll(test::SoundServer::Kind kind, const char* serverName) {
  const test::AudioFiles files;
  const auto& folder = files.folder();
  std::filesystem::create_directory(folder / "PreviewAudio");
  std::filesystem::rename(files.tone(440, trackSeconds), folder / "PreviewAudio" / "focus-1.m4a");
  std::filesystem::rename(files.tone(1000, trackSeconds), folder / "PreviewAudio" / "focus-2.m4a");

  test::SoundServer server(kind);
  for (const auto& [name, value] : server.environment()) {
    setenv(name.c_str(), value.c_str(), 1);
  }
  server.start();
  {
    MirevalPlayer player(folder);
    measure(player, server, serverName);
  }
  {
    MpvPlayer player(folder, server);
    measure(player, server, serverName);
  }
  MpdPlayer player(folder, server);
  measure(player, server, serverName);
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
