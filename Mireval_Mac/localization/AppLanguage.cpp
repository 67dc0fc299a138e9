#include "localization/AppLanguage.h"

#include <QLatin1StringView>

#include <algorithm>
#include <span>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// Everything that belongs to a language except its texts.
struct LanguageRecord {
  AppLanguage language;
  AppLanguageOption option;
  QLatin1StringView rawValue;
  QStringView displayName;
  QStringView fontFamily;
  /// In lower case; unused places are empty.
  std::array<QLatin1StringView, 4> tagPrefixes;
};

constexpr auto records = std::to_array<LanguageRecord>({
    {AppLanguage::english, AppLanguageOption::english, "en"_L1, u"English", {}, {"en"_L1}},
    {AppLanguage::chineseSimplified,
     AppLanguageOption::chineseSimplified,
     "zh-Hans"_L1,
     u"简体中文",
     u"Noto Sans CJK SC",
     {"zh"_L1}},
    {AppLanguage::chineseTraditional,
     AppLanguageOption::chineseTraditional,
     "zh-Hant"_L1,
     u"繁體中文",
     u"Noto Sans CJK TC",
     {"zh-hant"_L1, "zh-tw"_L1, "zh-hk"_L1, "zh-mo"_L1}},
    {AppLanguage::japanese, AppLanguageOption::japanese, "ja"_L1, u"日本語", u"Noto Sans CJK JP", {"ja"_L1}},
});

static_assert(std::ranges::equal(records, allAppLanguages, {}, &LanguageRecord::language),
              "one record for each language, in declaration order");
static_assert(std::ranges::equal(records, std::span(allAppLanguageOptions).subspan(1), {},
                                 &LanguageRecord::option),
              "one option for each language, behind `system`");

const LanguageRecord& recordOf(AppLanguage language) {
  return records.at(static_cast<std::size_t>(language));
}

std::optional<AppLanguage> languageOf(const LanguageRecord* record) {
  return record == records.end() ? std::nullopt : std::optional(record->language);
}

}  // namespace

QString rawValue(AppLanguage language) {
  return recordOf(language).rawValue;
}

std::optional<AppLanguage> appLanguageFromRawValue(QStringView text) {
  return languageOf(
      std::ranges::find_if(records, [text](const auto& record) { return text == record.rawValue; }));
}

std::optional<AppLanguage> appLanguageFromOption(AppLanguageOption option) {
  return languageOf(std::ranges::find(records, option, &LanguageRecord::option));
}

std::optional<AppLanguage> appLanguageFromTag(QStringView tag) {
  std::optional<AppLanguage> language;
  qsizetype longest = 0;
  for (const LanguageRecord& record : records) {
    for (const QLatin1StringView prefix : record.tagPrefixes) {
      if (prefix.size() > longest && tag.startsWith(prefix)) {
        language = record.language;
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
