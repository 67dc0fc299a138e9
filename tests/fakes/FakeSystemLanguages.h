#pragma once

#include "fakes/EventLog.h"
#include "platform/SystemLanguages.h"

#include <memory>

namespace mireval {

/// A system that knows of no language until the test says otherwise. It answers with whatever localizations
/// the test names, available or not. Events: "languages: preferred", "languages: localizations" and
/// "languages: locale", one for each question.
class FakeSystemLanguages final : public SystemLanguages {
 public:
  explicit FakeSystemLanguages(std::shared_ptr<EventLog> log = makeEventLog());

  void setPreferredLanguages(const QStringList& tags) { m_preferredLanguages = tags; }
  void setPreferredLocalizations(const QStringList& tags) { m_preferredLocalizations = tags; }
  void setCurrentLocaleIdentifier(const QString& identifier) { m_currentLocaleIdentifier = identifier; }

  QStringList preferredLanguages() const override;
  QStringList preferredLocalizations(const QStringList& available) const override;
  QString currentLocaleIdentifier() const override;

 private:
  const std::shared_ptr<EventLog> m_log;
  QStringList m_preferredLanguages;
  QStringList m_preferredLocalizations;
  QString m_currentLocaleIdentifier;
};

}  // namespace mireval
