#include "fakes/FakeSystemLanguages.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeSystemLanguages::FakeSystemLanguages(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

QStringList FakeSystemLanguages::preferredLanguages() const {
  m_log->add(u"languages: preferred"_s);
  return m_preferredLanguages;
}

QStringList FakeSystemLanguages::preferredLocalizations(const QStringList& /*available*/) const {
  m_log->add(u"languages: localizations"_s);
  return m_preferredLocalizations;
}

QString FakeSystemLanguages::currentLocaleIdentifier() const {
  m_log->add(u"languages: locale"_s);
  return m_currentLocaleIdentifier;
}

}  // namespace mireval
