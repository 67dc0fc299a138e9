#include "Players.h"

#include "library/LocalLibraryProvider.h"

#include <QCoreApplication>
#include <QLatin1String>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace mireval::bench {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

Catalogue twoTracks() {
  constexpr std::array titles{"First"_L1, "Second"_L1};
  return {{Mood::focus, makeTracks(titles, titles, Mood::focus)}};
}

std::filesystem::path trackIn(const std::filesystem::path& folder, int number) {
  return folder / "PreviewAudio" / ("focus-" + std::to_string(number) + ".m4a");
}

}  // namespace

MirevalPlayer::MirevalPlayer(const std::filesystem::path& folder) : m_bundle(folder) {
  m_factory.warmUp();
  // With zeros as random words the shuffle changes nothing.
  m_controller = AudioPlayerController::create(
      std::make_unique<LocalLibraryProvider>(twoTracks(), [] { return std::uint64_t{0}; }),
      {m_bundle, m_factory, m_runLoop, m_mainThread, m_commands, m_nowPlaying, m_imageDecoder, m_output});
}

void MirevalPlayer::play() {
  m_controller->selectMood(Mood::focus);
}

void MirevalPlayer::stop() {
  if (m_controller->isPlaying()) {
    m_controller->togglePlayback();
  }
}

RemotePlayer::~RemotePlayer() {
  if (m_socket >= 0) {
    close(m_socket);
  }
}

void RemotePlayer::launch(const std::vector<std::string>& command, const test::SoundServer& server) {
  m_process = std::make_unique<test::ChildProcess>(command, server.environment());
}

void RemotePlayer::connectTo(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
  const auto giveUp = std::chrono::steady_clock::now() + 10s;
  while (std::chrono::steady_clock::now() < giveUp) {
    m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) {
      return;
    }
    close(m_socket);
    m_socket = -1;
    std::this_thread::sleep_for(20ms);
  }
  throw std::runtime_error(std::string(name()) + " does not answer");
}

void RemotePlayer::send(const std::string& line) const {
  // Reads the answers, so that the player never blocks on a full socket.
  std::array<char, 4096> answers{};
  while (recv(m_socket, answers.data(), answers.size(), MSG_DONTWAIT) > 0) {
  }
  const std::string text = line + "\n";
  if (write(m_socket, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error(std::string(name()) + " is gone");
  }
}

MpvPlayer::MpvPlayer(const std::filesystem::path& folder, const test::SoundServer& server)
    : m_folder(folder) {
  const auto socket = folder / "mpv.socket";
  launch({"mpv", "--no-config", "--idle", "--no-video", "--no-terminal", "--ao=pulse",
          "--input-ipc-server=" + socket.string()},
         server);
  connectTo(socket);
}

void MpvPlayer::play() {
  send(R"({"command":["loadfile",")" + trackIn(m_folder, 1).string() + R"("]})");
  send(R"({"command":["loadfile",")" + trackIn(m_folder, 2).string() + R"(","append"]})");
}

void MpvPlayer::stop() {
  send(R"({"command":["stop"]})");
}

MpdPlayer::MpdPlayer(const std::filesystem::path& folder, const test::SoundServer& server) {
  const auto socket = folder / "mpd.socket";
  const auto configuration = folder / "mpd.conf";
  std::ofstream(configuration) << "bind_to_address \"" << socket.string() << "\"\n"
                               << "music_directory \"" << (folder / "PreviewAudio").string() << "\"\n"
                               << "db_file \"" << (folder / "mpd.db").string() << "\"\n"
                               << "audio_output {\n type \"pulse\"\n name \"pulse\"\n}\n";
  launch({"mpd", "--no-daemon", configuration.string()}, server);
  connectTo(socket);
  std::this_thread::sleep_for(1s);
  send("update");
  std::this_thread::sleep_for(2s);
  send("add focus-1.m4a");
  send("add focus-2.m4a");
}

void MpdPlayer::play() {
  send("play 0");
}

void MpdPlayer::stop() {
  send("stop");
}

}  // namespace mireval::bench
