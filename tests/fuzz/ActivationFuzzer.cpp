// What the desktop calls to start the program or one of its actions, with activation tokens.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/instance/BusActivation.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusActivation;
using mireval::BusPeer;

constexpr const char* path = "/org/mireval/Mireval";
constexpr const char* application = "org.freedesktop.Application";

const std::array<BusPeer::Outline, 3> calls{{
    {path, application, "Activate", "a{sv}"},
    {path, application, "Open", "asa{sv}"},
    {path, application, "ActivateAction", "sava{sv}"},
}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  mireval::MessageBus bus(mireval::MessageBus::Kind::session);
  BusActivation activation(
      bus, "org.mireval.Mireval",
      input.choice(2) == 0 ? BusActivation::StartedBy::user : BusActivation::StartedBy::bus);
  activation.appear();
  peer.settle();
  while (!input.isEmpty()) {
    const std::size_t choice = input.choice(calls.size() + 1);
    if (choice < calls.size()) {
      peer.call(calls.at(choice), input);
    } else {
      peer.answer("u", input);
    }
  }
  peer.settleConnected(bus);
  return 0;
}
