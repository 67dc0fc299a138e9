#include "library/Mood.h"

#include <QLatin1StringView>

#include <algorithm>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct MoodNames {
  QLatin1StringView rawValue;
  QLatin1StringView title;
  QLatin1StringView symbolName;
};

constexpr std::array<MoodNames, allMoods.size()> moodNames{{
    {"relaxation"_L1, "Relaxation"_L1, "wind"_L1},
    {"focus"_L1, "Focus"_L1, "scope"_L1},
    {"creative"_L1, "Creative"_L1, "sparkles"_L1},
    {"tempo"_L1, "Tempo"_L1, "metronome"_L1},
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
  const auto number = static_cast<int>(std::clamp<std::int64_t>(index, 1, coversPerMood));
  return u"%1-%2"_s.arg(rawValue(mood)).arg(number, 2, 10, '0'_L1);
}

}  // namespace mireval
