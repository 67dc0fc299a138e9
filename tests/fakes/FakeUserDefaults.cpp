#include "fakes/FakeUserDefaults.h"

#include <utility>

namespace mireval {

FakeUserDefaults::FakeUserDefaults(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

std::optional<QString> FakeUserDefaults::string(QStringView key) const {
  m_log->add(QLatin1String("defaults: read ") + key.toString());
  const auto found = m_values.find(key.toString());
  return m_failing || found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void FakeUserDefaults::set(QStringView key, const QString& value) {
  m_log->add(QLatin1String("defaults: ") + key.toString() + QLatin1String(" = ") + value);
  if (!m_failing) {
    m_values[key.toString()] = value;
  }
}

}  // namespace mireval
