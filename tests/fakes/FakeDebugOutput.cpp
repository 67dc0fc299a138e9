#include "fakes/FakeDebugOutput.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeDebugOutput::FakeDebugOutput(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

void FakeDebugOutput::writeLine(QStringView line) {
  m_log->add("debug: "_L1 + line.toString());
}

}  // namespace mireval
