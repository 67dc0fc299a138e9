#include "fakes/FakeRemoteCommand.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeRemoteCommand::FakeRemoteCommand(QString name, std::shared_ptr<EventLog> log)
    : m_name(std::move(name)), m_log(std::move(log)) {}

void FakeRemoteCommand::setEnabled(bool enabled) {
  m_enabled = enabled;
  m_log->add(m_name + QLatin1String(enabled ? ": setEnabled true" : ": setEnabled false"));
}

void FakeRemoteCommand::addHandler(Handler handler) {
  m_handlers.push_back(std::move(handler));
  m_log->add(m_name + ": addHandler"_L1);
}

std::vector<RemoteCommandHandlerStatus> FakeRemoteCommand::send() const {
  std::vector<RemoteCommandHandlerStatus> answers;
  answers.reserve(m_handlers.size());
  for (const Handler& handler : m_handlers) {
    answers.push_back(handler());
  }
  return answers;
}

}  // namespace mireval
