#pragma once

#include "fakes/EventLog.h"
#include "platform/RemoteCommandCenter.h"

#include <QString>

#include <memory>
#include <vector>

namespace mireval {

/// A command that the test sends. Events: "<name>: setEnabled true", "<name>: addHandler".
class FakeRemoteCommand final : public RemoteCommand {
 public:
  FakeRemoteCommand(QString name, std::shared_ptr<EventLog> log);

  void setEnabled(bool enabled) override;
  void addHandler(Handler handler) override;

  bool isEnabled() const { return m_enabled; }

  /// Calls every handler on the calling thread, in the order they were added; their answers.
  std::vector<RemoteCommandHandlerStatus> send() const;

 private:
  const QString m_name;
  const std::shared_ptr<EventLog> m_log;
  bool m_enabled = false;
  std::vector<Handler> m_handlers;
};

}  // namespace mireval
