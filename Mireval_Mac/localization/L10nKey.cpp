#include "localization/L10nKey.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <iterator>

namespace mireval {
namespace {

constexpr auto rawValues = std::to_array<QLatin1String>({
    QLatin1String("heroTitle"),
    QLatin1String("heroSubtitle"),
    QLatin1String("modesHeading"),
    QLatin1String("playing"),
    QLatin1String("ready"),
    QLatin1String("settingsTitle"),
    QLatin1String("languageTitle"),
    QLatin1String("languageDescription"),
    QLatin1String("followSystem"),
    QLatin1String("nowPlaying"),
    QLatin1String("selectMode"),
    QLatin1String("quit"),
});

}  // namespace

QString rawValue(L10nKey key) {
  return rawValues.at(static_cast<std::size_t>(key));
}

std::optional<L10nKey> l10nKeyFromRawValue(QStringView text) {
  const auto* const match =
      std::ranges::find_if(rawValues, [text](QLatin1String rawValue) { return text == rawValue; });
  return match == rawValues.end()
             ? std::nullopt
             : std::optional(static_cast<L10nKey>(std::distance(rawValues.begin(), match)));
}

}  // namespace mireval
