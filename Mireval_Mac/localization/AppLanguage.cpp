#include "localization/AppLanguage.h"

#include <QLatin1String>

#include <algorithm>

namespace mireval {
namespace {

struct LanguageNames {
  QLatin1String rawValue;
  QStringView displayName;
};

constexpr std::array<LanguageNames, allAppLanguages.size()> languageNames{{
    {QLatin1String("en"), u"English"},
    {QLatin1String("zh-Hans"), u"简体中文"},
    {QLatin1String("zh-Hant"), u"繁體中文"},
    {QLatin1String("ja"), u"日本語"},
}};

const LanguageNames& namesOf(AppLanguage language) {
  return languageNames.at(static_cast<std::size_t>(language));
}

}  // namespace

QString rawValue(AppLanguage language) {
  return namesOf(language).rawValue;
}

std::optional<AppLanguage> appLanguageFromRawValue(QStringView text) {
  const auto* const match = std::ranges::find_if(
      allAppLanguages, [text](AppLanguage language) { return text == namesOf(language).rawValue; });
  return match == allAppLanguages.end() ? std::nullopt : std::optional(*match);
}

QString id(AppLanguage language) {
  return rawValue(language);
}

QString displayName(AppLanguage language) {
  return namesOf(language).displayName.toString();
}

}  // namespace mireval
