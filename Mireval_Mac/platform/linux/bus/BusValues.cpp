#include "platform/linux/bus/BusValues.h"

#include <QtGlobal>

namespace mireval {

QByteArrayList readTexts(sd_bus_message* message) {
  QByteArrayList texts;
  const char* text = nullptr;
  sd_bus_message_enter_container(message, 'a', "s");
  while (sd_bus_message_read_basic(message, 's', &text) > 0) {
    texts.append(text);
  }
  sd_bus_message_exit_container(message);
  return texts;
}

bool nameHasOwner(sd_bus_message* change) {
  const char* newOwner = nullptr;
  return sd_bus_message_read(change, "sss", nullptr, nullptr, &newOwner) > 0 && *newOwner != '\0';
}

void setActivationToken(const QByteArray& token) {
  if (!token.isEmpty()) {
    // Qt looks for it here when the window asks for the keyboard.
    qputenv("XDG_ACTIVATION_TOKEN", token);
  }
}

}  // namespace mireval
