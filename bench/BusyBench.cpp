// Measures what is missing of a track while it plays, for this player and its peers. All play the same track
// on the same server; the monitor of its null sink is recorded. Prints lines `server player longest missed`,
// both in frames.
//
// usage: busy_bench SECONDS COMMAND...
//
// Listens to each player for so long. Starts the players by COMMAND, which can give them another priority
// than the servers and the recorder have. The player "control" is ours once more, started without it: what is
// missing of that one is the fault of a server, or of the recorder.

#include "Peers.h"
#include "PositionTones.h"
#include "RemotePlayer.h"

#include "AudioFiles.h"
#include "MonitorRecorder.h"
#include "SoundServer.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace mireval::bench {
namespace {

using namespace std::chrono_literals;
using Clock = test::MonitorRecorder::Clock;
using Descriptions = std::vector<RemotePlayer::Description>;

// Longer than a server on a desktop waits, so that the recorder does not make it work more often.
constexpr auto recordedBlock = 40ms;
constexpr auto patienceForSound = 15s;

struct Settings {
  std::chrono::seconds listening;
  std::vector<std::string> starter;
};

RemotePlayer::Description describeMireval(const std::filesystem::path& folder, const std::string& name) {
  const std::string socket = folder / (name + ".socket");
  return {.name = name,
          .command = {MIREVAL_PLAYER, folder, socket},
          .socket = socket,
          .setUp = {},
          .play = {"play"},
          .stop = {"stop"}};
}

Descriptions describeAll(const std::filesystem::path& folder, const std::vector<std::string>& starter) {
  Descriptions players = describePeers(folder);
  players.insert(players.begin(), describeMireval(folder, "mireval"));
  for (RemotePlayer::Description& player : players) {
    player.command.insert(player.command.begin(), starter.begin(), starter.end());
  }
  players.push_back(describeMireval(folder, "control"));
  return players;
}

void waitForSound(const test::MonitorRecorder& recorder, Clock::time_point begin, const std::string& player) {
  while (!recorder.firstSoundAfter(begin)) {
    if (Clock::now() > begin + patienceForSound) {
      throw std::runtime_error(player + " stayed silent");
    }
    std::this_thread::sleep_for(20ms);
  }
}

PositionTones::Interruptions listen(Player& player, const test::SoundServer& server,
                                    std::chrono::seconds time) {
  const test::MonitorRecorder recorder(server, recordedBlock);
  const std::size_t before = recorder.frames();
  const auto begin = Clock::now();
  player.play();
  waitForSound(recorder, begin, player.name());
  std::this_thread::sleep_for(time);
  const auto interruptions = PositionTones::interruptionsIn(recorder.recordingFrom(before));
  player.stop();
  return interruptions;
}

void measureAll(test::SoundServer::Kind kind, const char* serverName, const Settings& settings) {
  const test::AudioFiles files;
  const auto audio = files.folder() / "PreviewAudio";
  std::filesystem::create_directory(audio);
  const std::chrono::seconds length = settings.listening + 10s;
  std::filesystem::rename(PositionTones::makeFile(files, static_cast<double>(length.count())),
                          audio / "focus-1.m4a");
  std::filesystem::copy_file(audio / "focus-1.m4a", audio / "focus-2.m4a");

  test::SoundServer server(kind);
  server.start();
  for (auto& description : describeAll(files.folder(), settings.starter)) {
    RemotePlayer player(std::move(description), server);
    const auto [longest, missed] = listen(player, server, settings.listening);
    std::printf("%s %s %zu %zu\n", serverName, player.name().c_str(), longest, missed);
    std::fflush(stdout);
  }
}

}  // namespace
}  // namespace mireval::bench

int main(int argc, char** argv) {
  int seconds = 0;
  if (argc < 3 || std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), seconds).ec != std::errc() ||
      seconds < 1) {
    std::fprintf(stderr, "usage: busy_bench SECONDS COMMAND...\n");
    return 2;
  }
  try {
    using Kind = mireval::test::SoundServer::Kind;
    const mireval::bench::Settings settings{std::chrono::seconds(seconds), {argv + 2, argv + argc}};
    mireval::bench::measureAll(Kind::pulseAudio, "pulseaudio", settings);
    mireval::bench::measureAll(Kind::pipeWire, "pipewire", settings);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "busy_bench: %s\n", failure.what());
    return 1;
  }
  return 0;
}
