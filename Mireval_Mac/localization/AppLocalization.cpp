#include "localization/AppLocalization.h"

#include <array>

namespace mireval {
namespace {

QString fixedMoodTitle(Mood mood) {
  static constexpr std::array<QLatin1String, allMoods.size()> titles{
      QLatin1String("Relax"), QLatin1String("Focus"), QLatin1String("Create"), QLatin1String("Tempo")};
  return titles.at(static_cast<std::size_t>(mood));
}

}  // namespace

AppLocalization::AppLocalization() : AppLocalization(englishTexts(), englishMoodTitles()) {}

AppLocalization::AppLocalization(std::span<const LocalizedText> texts,
                                 std::span<const LocalizedMoodText> moodTitles) {
  for (const auto& [key, text] : texts) {
    m_texts.insert(key, QString::fromUtf16(text));
  }
  for (const auto& [mood, title] : moodTitles) {
    m_moodTitles.insert(mood, QString::fromUtf16(title));
  }
}

QString AppLocalization::text(L10nKey key) const {
  return m_texts.value(key);
}

QString AppLocalization::moodTitle(Mood mood) const {
  const auto title = m_moodTitles.constFind(mood);
  return title == m_moodTitles.constEnd() ? fixedMoodTitle(mood) : *title;
}

}  // namespace mireval
