#include "localization/AppLocalization.h"

#include <gtest/gtest.h>

#include <QMetaEnum>

#include <set>

namespace mireval {
namespace {

TEST(AppLocalizationTest, EnglishTexts) {
  const AppLocalization localization;
  EXPECT_EQ(localization.text(L10nKey::heroTitle),
            QStringLiteral("Every piece is curated for work companion"));
  EXPECT_EQ(localization.text(L10nKey::nowPlaying), QStringLiteral("Now Playing"));
  EXPECT_EQ(localization.text(L10nKey::selectMode), QStringLiteral("Select a mode"));
  EXPECT_EQ(localization.text(L10nKey::quit), QStringLiteral("Quit"));
}

TEST(AppLocalizationTest, EnglishModeTitles) {
  const AppLocalization localization;
  EXPECT_EQ(localization.moodTitle(Mood::relaxation), QStringLiteral("Relax"));
  EXPECT_EQ(localization.moodTitle(Mood::focus), QStringLiteral("Focus"));
  EXPECT_EQ(localization.moodTitle(Mood::creative), QStringLiteral("Create"));
  EXPECT_EQ(localization.moodTitle(Mood::tempo), QStringLiteral("Tempo"));
}

TEST(AppLocalizationTest, TablesHoldEveryKeyOnce) {
  std::set<L10nKey> keys;
  for (const auto& [key, text] : englishTexts()) {
    EXPECT_TRUE(keys.insert(key).second);
    EXPECT_NE(text[0], u'\0');
  }
  EXPECT_EQ(static_cast<int>(keys.size()), QMetaEnum::fromType<L10nKey>().keyCount());
  std::set<Mood> moods;
  for (const auto& [mood, title] : englishMoodTitles()) {
    EXPECT_TRUE(moods.insert(mood).second);
    EXPECT_NE(title[0], u'\0');
  }
  EXPECT_EQ(moods.size(), allMoods.size());
}

TEST(AppLocalizationTest, FallbacksOfEmptyTables) {
  const AppLocalization localization({}, {});
  EXPECT_EQ(localization.text(L10nKey::quit), QString());
  EXPECT_EQ(localization.moodTitle(Mood::relaxation), QStringLiteral("Relax"));
  EXPECT_EQ(localization.moodTitle(Mood::focus), QStringLiteral("Focus"));
  EXPECT_EQ(localization.moodTitle(Mood::creative), QStringLiteral("Create"));
  EXPECT_EQ(localization.moodTitle(Mood::tempo), QStringLiteral("Tempo"));
}

}  // namespace
}  // namespace mireval
