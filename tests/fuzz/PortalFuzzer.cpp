// What the settings portal answers and announces about the colour scheme.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/settings/PortalColorScheme.h"

#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusPeer;

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* bus = "org.freedesktop.DBus";

const BusPeer::Outline ownerChanged = BusPeer::ownerChanged(portal);
const BusPeer::Outline settingChanged{"/org/freedesktop/portal/desktop",
                                      "org.freedesktop.portal.Settings",
                                      "SettingChanged",
                                      "ssv",
                                      {"org.freedesktop.appearance", "color-scheme"}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  mireval::MessageBus sessionBus(mireval::MessageBus::Kind::session);
  const mireval::PortalColorScheme scheme(sessionBus);
  peer.settle();
  while (!input.isEmpty()) {
    switch (input.choice(3)) {
      case 0:
        peer.answer("v", input);
        break;
      case 1:
        peer.emit(portal, settingChanged, input);
        break;
      default:
        peer.emit(bus, ownerChanged, input);
    }
  }
  peer.settleConnected(sessionBus);
  return 0;
}
