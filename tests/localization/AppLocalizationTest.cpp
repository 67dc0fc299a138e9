#include "localization/AppLocalization.h"

#include "fakes/EventLog.h"
#include "fakes/FakeLocaleChanges.h"
#include "fakes/FakeMainThread.h"
#include "fakes/FakeSystemLanguages.h"
#include "fakes/FakeUserDefaults.h"
#include "localization/ExpectedTexts.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using Events = std::vector<std::string>;

class AppLocalizationTest : public testing::Test {
 protected:
  AppLocalization::Services services() {
    return {m_userDefaults, m_systemLanguages, m_localeChanges, m_mainThread};
  }

  /// With the given text stored as the option. The log then begins empty.
  AppLocalization& make(const std::optional<QString>& stored = std::nullopt) {
    if (stored) {
      m_userDefaults.put(u"app.language.option"_s, *stored);
    }
    return observed(std::make_unique<AppLocalization>(services()));
  }

  AppLocalization& makeFrom(std::span<const LanguageTables> tables) {
    return observed(std::make_unique<AppLocalization>(services(), tables));
  }

  std::map<QString, QString> stored() const { return m_userDefaults.values(); }

  const std::shared_ptr<EventLog> m_log = makeEventLog();
  FakeUserDefaults m_userDefaults{m_log};
  FakeSystemLanguages m_systemLanguages{m_log};
  FakeLocaleChanges m_localeChanges;
  FakeMainThread m_mainThread{m_log};
  std::unique_ptr<AppLocalization> m_localization;

 private:
  AppLocalization& observed(std::unique_ptr<AppLocalization> localization) {
    m_localization = std::move(localization);
    m_log->take();
    // Logs what an observer reads at that moment.
    QObject::connect(m_localization.get(), &AppLocalization::objectWillChange, [this] {
      m_log->add("objectWillChange: "_L1 + rawValue(m_localization->languageOption()));
    });
    QObject::connect(m_localization.get(), &AppLocalization::languageChanged, [this] {
      m_log->add("languageChanged: "_L1 + rawValue(m_localization->languageOption()));
    });
    return *m_localization;
  }
};

TEST_F(AppLocalizationTest, ReadsTheOptionOnceAndStoresNothingAtStart) {
  const AppLocalization localization(services());
  EXPECT_EQ(m_log->take(), (Events{"defaults: read app.language.option"}));
  EXPECT_EQ(localization.languageOption(), AppLanguageOption::system);
  EXPECT_TRUE(stored().empty());
}

TEST_F(AppLocalizationTest, TakesEachStoredOption) {
  for (const AppLanguageOption option : allAppLanguageOptions) {
    EXPECT_EQ(make(rawValue(option)).languageOption(), option);
    EXPECT_EQ(stored(), (std::map<QString, QString>{{u"app.language.option"_s, rawValue(option)}}));
  }
}

TEST_F(AppLocalizationTest, AnyOtherStoredTextMeansSystemAndStays) {
  for (const QString& text : {u""_s, u"Japanese"_s, u"ja"_s, u"JAPANESE"_s, u"japanese "_s, u"klingon"_s}) {
    EXPECT_EQ(make(text).languageOption(), AppLanguageOption::system) << text.toStdString();
    EXPECT_EQ(stored().at(u"app.language.option"_s), text);
  }
}

TEST_F(AppLocalizationTest, WithoutAStoreTheOptionIsSystemAndCanBeSet) {
  m_userDefaults.fail();
  AppLocalization& localization = make(u"japanese"_s);
  EXPECT_EQ(localization.languageOption(), AppLanguageOption::system);
  localization.setLanguageOption(AppLanguageOption::japanese);
  EXPECT_EQ(localization.effectiveLanguage(), AppLanguage::japanese);
}

TEST_F(AppLocalizationTest, AnnouncesThenTakesThenStoresAnOption) {
  AppLocalization& localization = make();
  localization.setLanguageOption(AppLanguageOption::chineseTraditional);
  EXPECT_EQ(m_log->take(),
            (Events{"objectWillChange: system", "defaults: app.language.option = chineseTraditional",
                    "languageChanged: chineseTraditional"}));
  EXPECT_EQ(stored(), (std::map<QString, QString>{{u"app.language.option"_s, u"chineseTraditional"_s}}));
}

TEST_F(AppLocalizationTest, AnEqualOptionIsAnnouncedAndStoredAllTheSame) {
  AppLocalization& localization = make(u"english"_s);
  localization.setLanguageOption(AppLanguageOption::english);
  EXPECT_EQ(m_log->take(), (Events{"objectWillChange: english", "defaults: app.language.option = english",
                                   "languageChanged: english"}));
}

TEST_F(AppLocalizationTest, PersistingStoresTheCurrentOption) {
  AppLocalization& localization = make();
  localization.persistLanguageOption();
  EXPECT_EQ(m_log->take(), (Events{"defaults: app.language.option = system"}));
}

TEST_F(AppLocalizationTest, EveryOptionComesBackAtTheNextStart) {
  for (const AppLanguageOption option : allAppLanguageOptions) {
    make().setLanguageOption(option);
    EXPECT_EQ(make().languageOption(), option);
  }
}

TEST_F(AppLocalizationTest, AFixedOptionAsksTheSystemNothing) {
  m_systemLanguages.setPreferredLanguages({u"ja-JP"_s});
  const std::map<AppLanguageOption, AppLanguage> languages{
      {AppLanguageOption::english, AppLanguage::english},
      {AppLanguageOption::chineseSimplified, AppLanguage::chineseSimplified},
      {AppLanguageOption::chineseTraditional, AppLanguage::chineseTraditional},
      {AppLanguageOption::japanese, AppLanguage::japanese},
  };
  for (const auto& [option, language] : languages) {
    AppLocalization& localization = make(rawValue(option));
    EXPECT_EQ(localization.effectiveLanguage(), language);
    EXPECT_EQ(localization.text(L10nKey::languageTitle), expectedTexts.at(6).text(language));
    EXPECT_EQ(m_log->take(), Events());
  }
}

TEST_F(AppLocalizationTest, TheSystemIsAskedAtEachUse) {
  AppLocalization& localization = make();
  const Events questions{"languages: preferred", "languages: localizations", "languages: locale"};
  m_systemLanguages.setPreferredLanguages({u"ja"_s});
  EXPECT_EQ(localization.effectiveLanguage(), AppLanguage::japanese);
  EXPECT_EQ(m_log->take(), questions);
  m_systemLanguages.setPreferredLanguages({u"zh"_s});
  EXPECT_EQ(localization.text(L10nKey::ready), u"就绪"_s);
  EXPECT_EQ(m_log->take(), questions);
  m_systemLanguages.setPreferredLanguages({u"zh-TW"_s});
  EXPECT_EQ(localization.moodTitle(Mood::relaxation), u"放鬆"_s);
  EXPECT_EQ(m_log->take(), questions);
}

TEST_F(AppLocalizationTest, ALocaleChangeIsAnnouncedOnTheMainThread) {
  AppLocalization& localization = make();
  m_localeChanges.change();
  EXPECT_EQ(m_log->take(), (Events{"mainThread: async"}));
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), (Events{"objectWillChange: system", "languageChanged: system"}));
  m_systemLanguages.setPreferredLanguages({u"ja"_s});
  EXPECT_EQ(localization.text(L10nKey::quit), u"終了"_s);
}

TEST_F(AppLocalizationTest, EachLocaleChangeIsATask) {
  make();
  m_localeChanges.change();
  m_localeChanges.change();
  EXPECT_EQ(m_mainThread.pending(), 2U);
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(),
            (Events{"mainThread: async", "mainThread: async", "objectWillChange: system",
                    "languageChanged: system", "objectWillChange: system", "languageChanged: system"}));
}

TEST_F(AppLocalizationTest, ALocaleChangeMeansNothingToAFixedOption) {
  for (const AppLanguageOption option : allAppLanguageOptions) {
    if (option != AppLanguageOption::system) {
      make(rawValue(option));
      m_localeChanges.change();
      m_mainThread.runAll();
      EXPECT_EQ(m_log->take(), (Events{"mainThread: async"})) << static_cast<int>(option);
    }
  }
}

TEST_F(AppLocalizationTest, TheOptionCountsWhenTheTaskRuns) {
  AppLocalization& localization = make();
  m_localeChanges.change();
  localization.setLanguageOption(AppLanguageOption::english);
  m_log->take();
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), Events());

  m_localeChanges.change();
  localization.setLanguageOption(AppLanguageOption::system);
  m_log->take();
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), (Events{"objectWillChange: system", "languageChanged: system"}));
}

TEST_F(AppLocalizationTest, ATaskThatOutlivesTheObjectDoesNothing) {
  make();
  m_localeChanges.change();
  m_localization.reset();
  m_log->take();
  EXPECT_EQ(m_mainThread.pending(), 1U);
  m_mainThread.runAll();
  EXPECT_EQ(m_log->take(), Events());
}

TEST_F(AppLocalizationTest, LocaleChangesAreObservedUntilTheEnd) {
  make();
  EXPECT_TRUE(m_localeChanges.isObserved());
  m_localization.reset();
  EXPECT_FALSE(m_localeChanges.isObserved());
  m_localeChanges.change();
  EXPECT_EQ(m_mainThread.pending(), 0U);
}

TEST_F(AppLocalizationTest, SpeaksTheShippedTextsInEachLanguage) {
  for (const AppLanguageOption option : allAppLanguageOptions) {
    const AppLocalization& localization = make(rawValue(option));
    const AppLanguage effective = localization.effectiveLanguage();
    for (const AppLanguage language : allAppLanguages) {
      for (const auto& expected : expectedTexts) {
        EXPECT_EQ(localization.text(expected.key, language), expected.text(language));
        EXPECT_EQ(localization.text(expected.key), expected.text(effective));
      }
      for (const auto& expected : expectedMoodTitles) {
        EXPECT_EQ(localization.moodTitle(expected.key, language), expected.text(language));
        EXPECT_EQ(localization.moodTitle(expected.key), expected.text(effective));
      }
    }
  }
}

TEST_F(AppLocalizationTest, NamesLanguagesAndSymbols) {
  const AppLocalization& localization = make(u"english"_s);
  EXPECT_EQ(localization.displayName(AppLanguage::japanese), u"日本語"_s);
  EXPECT_EQ(localization.spokenLabel(u"chevron.right"_s, AppLanguage::japanese), u"次の曲"_s);
  EXPECT_EQ(localization.spokenLabel(u"chevron"_s, AppLanguage::japanese), QString());
}

TEST_F(AppLocalizationTest, WithoutTablesTextsAreEmptyAndMoodsHaveFixedWords) {
  const AppLocalization& localization = makeFrom({});
  for (const AppLanguage language : allAppLanguages) {
    for (const auto& expected : expectedTexts) {
      EXPECT_EQ(localization.text(expected.key, language), QString());
    }
    EXPECT_EQ(localization.moodTitle(Mood::relaxation, language), u"Relax"_s);
    EXPECT_EQ(localization.moodTitle(Mood::focus, language), u"Focus"_s);
    EXPECT_EQ(localization.moodTitle(Mood::creative, language), u"Create"_s);
    EXPECT_EQ(localization.moodTitle(Mood::tempo, language), u"Tempo"_s);
  }
  EXPECT_EQ(localization.text(L10nKey::quit), QString());
  EXPECT_EQ(localization.moodTitle(Mood::creative), u"Create"_s);
}

constexpr auto english = std::to_array<LocalizedText>({{L10nKey::quit, u"Leave"}, {L10nKey::ready, u"Set"}});
constexpr auto englishMoods =
    std::to_array<LocalizedMoodText>({{Mood::tempo, u"Speed"}, {Mood::focus, u"Aim"}});
constexpr auto japanese =
    std::to_array<LocalizedText>({{L10nKey::quit, u"やめる"}, {L10nKey::playing, u"中"}});
constexpr auto japaneseMoods =
    std::to_array<LocalizedMoodText>({{Mood::tempo, u"速さ"}, {Mood::relaxation, u"休み"}});

TEST_F(AppLocalizationTest, WhatALanguageLacksIsSaidInEnglish) {
  const auto tables = std::to_array<LanguageTables>({
      {AppLanguage::english, english, englishMoods, {}},
      {AppLanguage::chineseTraditional, {}, {}, {}},
      {AppLanguage::japanese, japanese, japaneseMoods, {}},
  });
  const AppLocalization& localization = makeFrom(tables);
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::japanese), u"やめる"_s);
  EXPECT_EQ(localization.text(L10nKey::playing, AppLanguage::japanese), u"中"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo, AppLanguage::japanese), u"速さ"_s);
  EXPECT_EQ(localization.moodTitle(Mood::relaxation, AppLanguage::japanese), u"休み"_s);

  // The table lacks the key, is empty, or does not exist.
  EXPECT_EQ(localization.text(L10nKey::ready, AppLanguage::japanese), u"Set"_s);
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::chineseTraditional), u"Leave"_s);
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::chineseSimplified), u"Leave"_s);
  EXPECT_EQ(localization.moodTitle(Mood::focus, AppLanguage::japanese), u"Aim"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo, AppLanguage::chineseTraditional), u"Speed"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo, AppLanguage::chineseSimplified), u"Speed"_s);

  // English lacks it, too.
  EXPECT_EQ(localization.text(L10nKey::nowPlaying, AppLanguage::japanese), QString());
  EXPECT_EQ(localization.text(L10nKey::playing, AppLanguage::english), QString());
  EXPECT_EQ(localization.moodTitle(Mood::creative, AppLanguage::japanese), u"Create"_s);
  EXPECT_EQ(localization.moodTitle(Mood::relaxation, AppLanguage::english), u"Relax"_s);
}

TEST_F(AppLocalizationTest, TheFallbackOfTheEffectiveLanguageIsEnglish) {
  const auto tables = std::to_array<LanguageTables>({
      {AppLanguage::japanese, japanese, japaneseMoods, {}},
      {AppLanguage::english, english, englishMoods, {}},
  });
  AppLocalization& localization = makeFrom(tables);
  localization.setLanguageOption(AppLanguageOption::japanese);
  EXPECT_EQ(localization.text(L10nKey::quit), u"やめる"_s);
  EXPECT_EQ(localization.text(L10nKey::ready), u"Set"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo), u"速さ"_s);
  EXPECT_EQ(localization.moodTitle(Mood::focus), u"Aim"_s);
}

TEST_F(AppLocalizationTest, WithoutEnglishThereIsNoFallbackButTheFixedWord) {
  const auto tables = std::to_array<LanguageTables>({{AppLanguage::japanese, japanese, japaneseMoods, {}}});
  const AppLocalization& localization = makeFrom(tables);
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::japanese), u"やめる"_s);
  EXPECT_EQ(localization.text(L10nKey::ready, AppLanguage::japanese), QString());
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::english), QString());
  EXPECT_EQ(localization.text(L10nKey::quit, AppLanguage::chineseSimplified), QString());
  EXPECT_EQ(localization.moodTitle(Mood::focus, AppLanguage::japanese), u"Focus"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo, AppLanguage::english), u"Tempo"_s);
  EXPECT_EQ(localization.moodTitle(Mood::tempo, AppLanguage::chineseTraditional), u"Tempo"_s);
}

}  // namespace
}  // namespace mireval
