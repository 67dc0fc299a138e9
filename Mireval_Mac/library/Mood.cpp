#include "library/Mood.h"

#include <QLatin1String>

#include <algorithm>

namespace mireval {
namespace {

struct MoodNames {
  QLatin1String rawValue;
  QLatin1String title;
  QLatin1String symbolName;
};

constexpr std::array<MoodNames, allMoods.size()> moodNames{{
    {QLatin1String("relaxation"), QLatin1String("Relaxation"), QLatin1String("wind")},
    {QLatin1String("focus"), QLatin1String("Focus"), QLatin1String("scope")},
    {QLatin1String("creative"), QLatin1String("Creative"), QLatin1String("sparkles")},
    {QLatin1String("tempo"), QLatin1String("Tempo"), QLatin1String("metronome")},
}};

const MoodNames& namesOf(Mood mood) {
  return moodNames.at(static_cast<std::size_t>(mood));
}

}  // namespace

QString rawValue(Mood mood) {
  return namesOf(mood).rawValue;
}

std::optional<Mood> moodFromRawValue(QStringView text) {
  const auto* const match =
      std::ranges::find_if(allMoods, [text](Mood mood) { return text == namesOf(mood).rawValue; });
  return match == allMoods.end() ? std::nullopt : std::optional(*match);
}

QString id(Mood mood) {
  return rawValue(mood);
}

QString title(Mood mood) {
  return namesOf(mood).title;
}

QString symbolName(Mood mood) {
  return namesOf(mood).symbolName;
}

QString coverImageName(Mood mood, std::int64_t index) {
  constexpr std::int64_t firstCover = 1;
  constexpr std::int64_t lastCover = 10;
  const auto number = static_cast<int>(std::clamp(index, firstCover, lastCover));
  return QStringLiteral("%1-%2").arg(rawValue(mood)).arg(number, 2, 10, QLatin1Char('0'));
}

}  // namespace mireval
