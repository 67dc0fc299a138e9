#include "fakes/FakeSystemLanguages.h"

#include <utility>

namespace mireval {

FakeSystemLanguages::FakeSystemLanguages(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

QStringList FakeSystemLanguages::preferredLanguages() const {
  m_log->add(QStringLiteral("languages: preferred"));
  return m_preferredLanguages;
}

QStringList FakeSystemLanguages::preferredLocalizations(const QStringList& /*available*/) const {
  m_log->add(QStringLiteral("languages: localizations"));
  return m_preferredLocalizations;
}

QString FakeSystemLanguages::currentLocaleIdentifier() const {
  m_log->add(QStringLiteral("languages: locale"));
  return m_currentLocaleIdentifier;
}

}  // namespace mireval
