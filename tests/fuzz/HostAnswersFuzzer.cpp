// What the bus and the trays' watcher answer and announce.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/tray/StatusNotifierItem.h"

#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusPeer;
using mireval::StatusNotifierItem;

constexpr const char* watcher = StatusNotifierItem::watcherName;
constexpr const char* watcherPath = StatusNotifierItem::watcherPath;
constexpr const char* bus = "org.freedesktop.DBus";

const BusPeer::Outline ownerChanged = BusPeer::ownerChanged(watcher);
const BusPeer::Outline hostCame{watcherPath, watcher, "StatusNotifierHostRegistered", ""};
const BusPeer::Outline hostWent{watcherPath, watcher, "StatusNotifierHostUnregistered", ""};

void play(BusPeer& peer, const StatusNotifierItem& item, mireval::FuzzInput& input) {
  switch (input.choice(8)) {
    case 0:
      peer.emit(bus, ownerChanged, input);
      break;
    case 1:
      peer.emit(watcher, hostCame, input);
      break;
    case 2:
      peer.emit(watcher, hostWent, input);
      break;
    case 3: {
      const auto x = input.number<std::int32_t>();
      const QPoint told(x, input.number<std::int32_t>());
      item.host().placeOf({.told = told, .pointer = {}});
      break;
    }
    case 4:
      peer.answer("v", input);
      break;
    case 5:
      peer.answer("", input);
      break;
    default:
      peer.answer("u", input);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  mireval::MessageBus sessionBus(mireval::MessageBus::Kind::session);
  StatusNotifierItem item(sessionBus, "/nowhere/icon.png", StatusNotifierItem::ActivationTokens::wanted);
  item.appear();
  peer.settle();
  while (!input.isEmpty()) {
    play(peer, item, input);
  }
  peer.settleConnected(sessionBus);
  return 0;
}
