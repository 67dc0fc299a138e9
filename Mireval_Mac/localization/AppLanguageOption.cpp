#include "localization/AppLanguageOption.h"

#include <QLatin1String>

#include <algorithm>

namespace mireval {
namespace {

constexpr std::array<QLatin1String, allAppLanguageOptions.size()> rawValues{
    QLatin1String("system"), QLatin1String("english"), QLatin1String("chineseSimplified"),
    QLatin1String("chineseTraditional"), QLatin1String("japanese")};

QLatin1String rawValueOf(AppLanguageOption option) {
  return rawValues.at(static_cast<std::size_t>(option));
}

}  // namespace

QString rawValue(AppLanguageOption option) {
  return rawValueOf(option);
}

std::optional<AppLanguageOption> appLanguageOptionFromRawValue(QStringView text) {
  const auto* const match = std::ranges::find_if(
      allAppLanguageOptions, [text](AppLanguageOption option) { return text == rawValueOf(option); });
  return match == allAppLanguageOptions.end() ? std::nullopt : std::optional(*match);
}

QString id(AppLanguageOption option) {
  return rawValue(option);
}

}  // namespace mireval
