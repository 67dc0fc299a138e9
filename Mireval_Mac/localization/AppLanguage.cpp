#include "localization/AppLanguage.h"

#include <QLatin1StringView>

#include <algorithm>
#include <span>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using enum AppLanguageOption;

/// Everything that belongs to a language except its texts.
struct LanguageRecord {
  AppLanguageOption option;
  QLatin1StringView rawValue;
  QStringView displayName;
  QStringView fontFamily;
  /// In lower case; unused places are empty.
  std::array<QLatin1StringView, 4> tagPrefixes;
};

/// In the order of `AppLanguage`.
constexpr std::array<LanguageRecord, allAppLanguages.size()> records{{
    {english, "en"_L1, u"English", u"", {"en"_L1}},
    {chineseSimplified, "zh-Hans"_L1, u"简体中文", u"Noto Sans CJK SC", {"zh"_L1}},
    {chineseTraditional,
     "zh-Hant"_L1,
     u"繁體中文",
     u"Noto Sans CJK TC",
     {"zh-hant"_L1, "zh-tw"_L1, "zh-hk"_L1, "zh-mo"_L1}},
    {japanese, "ja"_L1, u"日本語", u"Noto Sans CJK JP", {"ja"_L1}},
}};

static_assert(std::ranges::equal(records, std::span(allAppLanguageOptions).subspan(1), {},
                                 &LanguageRecord::option),
              "one record for each language, one option for each behind `system`, all in the same order");

const LanguageRecord& recordOf(AppLanguage language) {
  return records.at(static_cast<std::size_t>(language));
}

template <typename Predicate>
std::optional<AppLanguage> findLanguage(Predicate matches) {
  const auto* const match = std::ranges::find_if(allAppLanguages, matches, recordOf);
  return match == allAppLanguages.end() ? std::nullopt : std::optional(*match);
}

}  // namespace

QString rawValue(AppLanguage language) {
  return recordOf(language).rawValue;
}

std::optional<AppLanguage> appLanguageFromRawValue(QStringView text) {
  return findLanguage([text](const LanguageRecord& record) { return text == record.rawValue; });
}

std::optional<AppLanguage> appLanguageFromOption(AppLanguageOption option) {
  return findLanguage([option](const LanguageRecord& record) { return option == record.option; });
}

std::optional<AppLanguage> appLanguageFromTag(QStringView tag) {
  std::optional<AppLanguage> language;
  qsizetype longest = 0;
  for (const AppLanguage candidate : allAppLanguages) {
    for (const QLatin1StringView prefix : recordOf(candidate).tagPrefixes) {
      if (prefix.size() > longest && tag.startsWith(prefix)) {
        language = candidate;
        longest = prefix.size();
      }
    }
  }
  return language;
}

QString id(AppLanguage language) {
  return rawValue(language);
}

QString displayName(AppLanguage language) {
  return recordOf(language).displayName.toString();
}

QString fontFamily(AppLanguage language) {
  return recordOf(language).fontFamily.toString();
}

}  // namespace mireval
