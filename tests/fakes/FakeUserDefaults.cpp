#include "fakes/FakeUserDefaults.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeUserDefaults::FakeUserDefaults(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

std::optional<QString> FakeUserDefaults::string(QStringView key) const {
  m_log->add("defaults: read "_L1 + key.toString());
  const auto found = m_values.find(key.toString());
  return m_failing || found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void FakeUserDefaults::set(QStringView key, const QString& value) {
  m_log->add("defaults: "_L1 + key.toString() + " = "_L1 + value);
  if (!m_failing) {
    m_values[key.toString()] = value;
  }
}

}  // namespace mireval
