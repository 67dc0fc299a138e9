// What a tray calls on the icon's item and its menu.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/tray/StatusNotifierItem.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusPeer;
using mireval::StatusNotifierItem;
using mireval::StatusNotifierMenu;

constexpr const char* itemPath = StatusNotifierItem::objectPath;
constexpr const char* item = StatusNotifierItem::itemInterface;
constexpr const char* menuPath = StatusNotifierMenu::objectPath;
constexpr const char* menu = StatusNotifierMenu::interface;
constexpr const char* properties = "org.freedesktop.DBus.Properties";

const std::array<BusPeer::Outline, 14> calls{{
    {itemPath, item, "Activate", "ii"},
    {itemPath, item, "SecondaryActivate", "ii"},
    {itemPath, item, "ContextMenu", "ii"},
    {itemPath, item, "Scroll", "is"},
    {itemPath, item, "ProvideXdgActivationToken", "s"},
    {itemPath, properties, "Get", "ss", {item}},
    {itemPath, properties, "GetAll", "s", {item}},
    {menuPath, menu, "GetLayout", "iias"},
    {menuPath, menu, "GetGroupProperties", "aias"},
    {menuPath, menu, "GetProperty", "is"},
    {menuPath, menu, "Event", "isvu"},
    {menuPath, menu, "EventGroup", "a(isvu)"},
    {menuPath, menu, "AboutToShow", "i"},
    {menuPath, menu, "AboutToShowGroup", "ai"},
}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  mireval::MessageBus bus(mireval::MessageBus::Kind::session);
  StatusNotifierItem statusItem(bus, "/nowhere/icon.png", StatusNotifierItem::ActivationTokens::wanted);
  statusItem.appear();
  statusItem.setToolTip(QString::fromStdString(input.text()));
  peer.settle();
  while (!input.isEmpty()) {
    peer.call(calls.at(input.choice(calls.size())), input);
  }
  peer.settleConnected(bus);
  return 0;
}
