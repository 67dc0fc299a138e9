#pragma once

#include "platform/RemoteCommandCenter.h"

#include <systemd/sd-bus.h>

#include <functional>
#include <vector>

namespace mireval {

/// A command of the media controls, as clients on the bus send it.
class MprisCommand final : public RemoteCommand {
 public:
  /// Tells clients that a command was not obeyed.
  static constexpr const char* failure = "The command could not be obeyed";

  MprisCommand(std::function<void()> enabledChanged, std::function<void()> handlerAdded);

  void setEnabled(bool enabled) override;
  void addHandler(Handler handler) override;

  bool isEnabled() const { return m_enabled; }
  /// Calls the handlers, if the command is enabled. False if one of them fails.
  bool send() const;
  /// The same; answers the call.
  int send(sd_bus_message* call) const;

 private:
  const std::function<void()> m_enabledChanged;
  const std::function<void()> m_handlerAdded;
  bool m_enabled = false;
  std::vector<Handler> m_handlers;
};

}  // namespace mireval
