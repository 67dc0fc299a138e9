#include "platform/linux/media/MprisCommand.h"

#include <utility>

namespace mireval {

MprisCommand::MprisCommand(std::function<void()> enabledChanged, std::function<void()> handlerAdded)
    : m_enabledChanged(std::move(enabledChanged)), m_handlerAdded(std::move(handlerAdded)) {}

void MprisCommand::setEnabled(bool enabled) {
  if (std::exchange(m_enabled, enabled) != enabled) {
    m_enabledChanged();
  }
}

void MprisCommand::addHandler(Handler handler) {
  m_handlers.push_back(std::move(handler));
  m_handlerAdded();
}

bool MprisCommand::send() const {
  bool succeeded = true;
  if (m_enabled) {
    for (const Handler& handler : m_handlers) {
      succeeded = handler() == RemoteCommandHandlerStatus::success && succeeded;
    }
  }
  return succeeded;
}

int MprisCommand::send(sd_bus_message* call) const {
  return send() ? sd_bus_reply_method_return(call, nullptr)
                : sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "%s", failure);
}

}  // namespace mireval
