#pragma once

#include "fakes/EventLog.h"
#include "platform/DebugOutput.h"

#include <memory>

namespace mireval {

/// Writes debug lines to the event log, as "debug: <line>".
class FakeDebugOutput final : public DebugOutput {
 public:
  explicit FakeDebugOutput(std::shared_ptr<EventLog> log = makeEventLog());

  void writeLine(QStringView line) override;

 private:
  const std::shared_ptr<EventLog> m_log;
};

}  // namespace mireval
