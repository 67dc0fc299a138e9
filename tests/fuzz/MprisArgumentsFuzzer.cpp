// What media keys and players' lists call, and what the bus answers to the request for a name.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/media/MprisMediaControls.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusPeer;
using mireval::MprisMediaControls;

constexpr const char* path = MprisMediaControls::objectPath;
constexpr const char* application = MprisMediaControls::applicationInterface;
constexpr const char* player = MprisMediaControls::playerInterface;
constexpr const char* properties = "org.freedesktop.DBus.Properties";

const std::array<BusPeer::Outline, 17> calls{{
    {path, player, "Play", ""},
    {path, player, "Pause", ""},
    {path, player, "PlayPause", ""},
    {path, player, "Stop", ""},
    {path, player, "Next", ""},
    {path, player, "Previous", ""},
    {path, player, "Seek", "x"},
    {path, player, "SetPosition", "ox"},
    {path, player, "OpenUri", "s"},
    {path, application, "Raise", ""},
    {path, application, "Quit", ""},
    {path, properties, "Get", "ss", {player}},
    {path, properties, "GetAll", "s"},
    {path, properties, "GetAll", "s", {player}},
    {path, properties, "Set", "ssv", {player}},
    {path, properties, "Set", "ssv", {player, "Rate"}},
    {path, properties, "Set", "ssv", {player, "Volume"}},
}};

mireval::NowPlayingInfo takeInfo(mireval::FuzzInput& input) {
  mireval::NowPlayingInfo info;
  info.title = QString::fromStdString(input.text());
  info.albumTitle = QString::fromStdString(input.text());
  info.artist = QString::fromStdString(input.text());
  info.elapsedPlaybackSeconds = input.number<double>();
  info.playbackDurationSeconds = input.number<double>();
  info.playbackRate = input.number<double>();
  return info;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  mireval::MessageBus bus(mireval::MessageBus::Kind::session);
  MprisMediaControls controls(
      bus, {.identity = "Mireval", .busName = "mireval", .desktopEntry = "org.mireval.Mireval"});
  for (mireval::RemoteCommand* const command :
       {&controls.playCommand(), &controls.pauseCommand(), &controls.togglePlayPauseCommand()}) {
    command->addHandler([] { return mireval::RemoteCommandHandlerStatus::success; });
    command->setEnabled(true);
  }
  peer.settle();
  while (!input.isEmpty()) {
    const std::size_t choice = input.choice(calls.size() + 2);
    if (choice < calls.size()) {
      peer.call(calls.at(choice), input);
    } else if (choice == calls.size()) {
      controls.setNowPlayingInfo(takeInfo(input));
    } else {
      peer.answer("u", input);
    }
  }
  peer.settleConnected(bus);
  return 0;
}
