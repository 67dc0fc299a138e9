#include "Peers.h"

#include <fstream>
#include <string>

namespace mireval::bench {
namespace {

std::string track(const std::filesystem::path& folder, int number) {
  return folder / "PreviewAudio" / ("focus-" + std::to_string(number) + ".m4a");
}

RemotePlayer::Description describeMpv(const std::filesystem::path& folder) {
  const std::string socket = folder / "mpv.socket";
  return {.name = "mpv",
          .command = {"mpv", "--no-config", "--idle", "--no-video", "--no-terminal", "--ao=pulse",
                      "--input-ipc-server=" + socket},
          .socket = socket,
          .setUp = {},
          .play = {R"({"command":["loadfile",")" + track(folder, 1) + R"("]})",
                   R"({"command":["loadfile",")" + track(folder, 2) + R"(","append"]})"},
          .stop = {R"({"command":["stop"]})"}};
}

RemotePlayer::Description describeMpd(const std::filesystem::path& folder) {
  const std::string socket = folder / "mpd.socket";
  const std::string configuration = folder / "mpd.conf";
  std::ofstream(configuration) << "bind_to_address \"" << socket << "\"\n"
                               << "audio_output {\n type \"pulse\"\n name \"pulse\"\n}\n";
  return {.name = "mpd",
          .command = {"mpd", "--no-daemon", configuration},
          .socket = socket,
          .setUp = {"add \"" + track(folder, 1) + '"', "add \"" + track(folder, 2) + '"'},
          .play = {"play 0"},
          .stop = {"stop"}};
}

RemotePlayer::Description describeCmus(const std::filesystem::path& folder) {
  const std::string socket = folder / "cmus.socket";
  const std::filesystem::path home = folder / "cmus";
  std::filesystem::create_directory(home);
  std::ofstream(home / "rc") << "set output_plugin=pulse\nset mpris=false\n";
  // It needs a terminal, of which nobody reads, and it waits for a key when it finds no message bus.
  const std::string command = "TERM=xterm CMUS_HOME=" + home.string() +
                              " exec script --quiet --flush --command 'exec cmus --listen " + socket +
                              "' /dev/null >/dev/null";
  return {.name = "cmus",
          .command = {"sh", "-c", command},
          .socket = socket,
          .setUp = {},
          .play = {"player-play " + track(folder, 1), "add -q " + track(folder, 2)},
          .stop = {"player-stop", "clear -q"}};
}

}  // namespace

std::vector<RemotePlayer::Description> describePeers(const std::filesystem::path& folder) {
  return {describeMpv(folder), describeMpd(folder), describeCmus(folder)};
}

}  // namespace mireval::bench
