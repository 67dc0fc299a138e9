#include "fakes/FakeDebugOutput.h"

#include <utility>

namespace mireval {

FakeDebugOutput::FakeDebugOutput(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

void FakeDebugOutput::writeLine(QStringView line) {
  m_log->add(QLatin1String("debug: ") + line.toString());
}

}  // namespace mireval
