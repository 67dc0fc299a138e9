#include "localization/AppLocalization.h"

#include "localization/SpokenLabels.h"
#include "platform/LocaleChanges.h"
#include "platform/MainThread.h"
#include "platform/SystemLanguages.h"
#include "platform/UserDefaults.h"

#include <QLatin1StringView>
#include <QPointer>
#include <QStringList>

#include <array>
#include <initializer_list>
#include <optional>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr QStringView languageOptionKey = u"app.language.option";

QString fixedMoodTitle(Mood mood) {
  static constexpr std::array<QLatin1StringView, allMoods.size()> titles{"Relax"_L1, "Focus"_L1, "Create"_L1,
                                                                         "Tempo"_L1};
  return titles.at(static_cast<std::size_t>(mood));
}

/// Shares the text, which is static, instead of copying it.
QString sharedText(QStringView text) {
  return QString::fromRawData(text.data(), text.size());
}

template <typename Key>
QHash<Key, QString> textsByKey(std::span<const std::pair<Key, QStringView>> table) {
  QHash<Key, QString> texts;
  for (const auto& [key, text] : table) {
    texts.insert(key, sharedText(text));
  }
  return texts;
}

template <typename Key>
std::optional<QString> find(const QHash<AppLanguage, QHash<Key, QString>>& texts, Key key,
                            AppLanguage language) {
  for (const AppLanguage candidate : {language, AppLanguage::english}) {
    if (const auto ofLanguage = texts.constFind(candidate); ofLanguage != texts.constEnd()) {
      if (const auto text = ofLanguage->constFind(key); text != ofLanguage->constEnd()) {
        return *text;
      }
    }
  }
  return std::nullopt;
}

/// The tags of all languages, in declaration order.
QStringList localizations() {
  QStringList tags;
  for (const AppLanguage language : allAppLanguages) {
    tags.append(rawValue(language));
  }
  return tags;
}

}  // namespace

AppLocalization::AppLocalization(Services services) : AppLocalization(services, shippedTables()) {}

AppLocalization::AppLocalization(Services services, std::span<const LanguageTables> tables)
    : m_services(services) {
  for (const LanguageTables& table : tables) {
    m_translations.insert(table.language, textsByKey(table.texts));
    m_moodTitles.insert(table.language, textsByKey(table.moodTitles));
    m_moodSubtitles.insert(table.language, textsByKey(table.moodSubtitles));
  }
  const QString stored = services.userDefaults.string(languageOptionKey).value_or(QString());
  m_languageOption = appLanguageOptionFromRawValue(stored).value_or(AppLanguageOption::system);
  connect(&services.localeChanges, &LocaleChanges::currentLocaleDidChange, this,
          &AppLocalization::localeDidChange);
}

void AppLocalization::setLanguageOption(AppLanguageOption option) {
  Q_EMIT objectWillChange();
  m_languageOption = option;
  persistLanguageOption();
  Q_EMIT languageChanged();
}

void AppLocalization::persistLanguageOption() {
  m_services.userDefaults.set(languageOptionKey, rawValue(m_languageOption));
}

AppLanguage AppLocalization::effectiveLanguage() const {
  if (const auto language = appLanguageFromOption(m_languageOption)) {
    return *language;
  }
  return detectSystemLanguage(m_services.systemLanguages);
}

AppLanguage AppLocalization::detectSystemLanguage(const SystemLanguages& systemLanguages) {
  QStringList candidates = systemLanguages.preferredLanguages();
  candidates += systemLanguages.preferredLocalizations(localizations());
  candidates += systemLanguages.currentLocaleIdentifier();
  for (const QString& candidate : std::as_const(candidates)) {
    if (const auto language = appLanguageFromTag(candidate.toLower().replace(u'_', u'-'))) {
      return *language;
    }
  }
  return AppLanguage::english;
}

QString AppLocalization::text(L10nKey key) const {
  return text(key, effectiveLanguage());
}

QString AppLocalization::text(L10nKey key, AppLanguage language) const {
  return find(m_translations, key, language).value_or(QString());
}

QString AppLocalization::moodTitle(Mood mood) const {
  return moodTitle(mood, effectiveLanguage());
}

QString AppLocalization::moodTitle(Mood mood, AppLanguage language) const {
  const auto title = find(m_moodTitles, mood, language);
  return title ? *title : fixedMoodTitle(mood);
}

QString AppLocalization::spokenLabel(const QString& name, AppLanguage language) const {
  return sharedText(mireval::spokenLabel(name, language));
}

QString AppLocalization::displayName(AppLanguage language) const {
  return mireval::displayName(language);
}

void AppLocalization::localeDidChange() {
  m_services.mainThread.async([self = QPointer(this)] {
    if (self && self->m_languageOption == AppLanguageOption::system) {
      Q_EMIT self->objectWillChange();
      Q_EMIT self->languageChanged();
    }
  });
}

}  // namespace mireval
