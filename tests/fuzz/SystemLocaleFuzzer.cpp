// What org.freedesktop.locale1 answers and announces.
#include "BusPeer.h"
#include "FuzzApplication.h"
#include "platform/linux/settings/SystemLocale.h"

#include <QtGlobal>

#include <cstddef>
#include <cstdint>

namespace {

using mireval::BusPeer;

constexpr const char* service = "org.freedesktop.locale1";
const BusPeer::Outline changed{"/org/freedesktop/locale1",
                               "org.freedesktop.DBus.Properties",
                               "PropertiesChanged",
                               "sa{sv}as",
                               {service}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  // With it, the service is asked for the locale at the start.
  qputenv("LANGUAGE", "ja:en");
  mireval::FuzzInput input(data, size);
  BusPeer peer;
  const mireval::SystemLocale locale;
  peer.settle();
  while (!input.isEmpty()) {
    if (input.choice(2) == 0) {
      peer.answer("v", input);
    } else {
      peer.emit(service, changed, input);
    }
    locale.preferredLanguages();
    locale.currentLocaleIdentifier();
  }
  return 0;
}
