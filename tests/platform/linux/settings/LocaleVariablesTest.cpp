#include "platform/linux/settings/LocaleVariables.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

const QStringList localizationsOfTheApplication{u"en"_s, u"zh-Hans"_s, u"zh-Hant"_s, u"ja"_s};

LocaleVariables make(const std::map<std::string, QByteArray>& values) {
  return LocaleVariables([&values](const char* name) {
    const auto found = values.find(name);
    return found == values.end() ? QByteArray() : found->second;
  });
}

/// LANGUAGE in a locale that adds no language.
LocaleVariables makeLanguage(const QByteArray& value) {
  return make({{"LANGUAGE", value}, {"LANG", "C.UTF-8"}});
}

QStringList languages(const QByteArray& variable) {
  return makeLanguage(variable).preferredLanguages();
}

QStringList localizations(const QByteArray& languages) {
  return makeLanguage(languages).preferredLocalizations(localizationsOfTheApplication);
}

TEST(LocaleVariables, NothingSetIsNothingPreferred) {
  const LocaleVariables variables = make({});
  EXPECT_EQ(variables.preferredLanguages(), QStringList());
  EXPECT_EQ(variables.preferredLocalizations(localizationsOfTheApplication), QStringList());
  EXPECT_EQ(variables.currentLocaleIdentifier(), QString());
}

TEST(LocaleVariables, LanguageThenTheLocale) {
  const LocaleVariables variables = make({{"LANG", "de_DE.UTF-8"},
                                          {"LC_ALL", "ja_JP.UTF-8"},
                                          {"LC_MESSAGES", "fr_FR.UTF-8"},
                                          {"LC_NUMERIC", "it_IT.UTF-8"},
                                          {"LANGUAGE", "zh_TW:en_GB"}});
  EXPECT_EQ(variables.preferredLanguages(), (QStringList{u"zh_TW"_s, u"en_GB"_s, u"ja_JP"_s}));
}

TEST(LocaleVariables, WhatNamesALanguage) {
  // Without encodings and modifiers.
  EXPECT_EQ(languages("sr_RS@latin:de.ISO-8859-15@euro:ca@x.y:ja_JP.UTF-8:zh-Hant-TW"),
            (QStringList{u"sr_RS"_s, u"de"_s, u"ca"_s, u"ja_JP"_s, u"zh-Hant-TW"_s}));
  EXPECT_EQ(languages(":C.UTF-8::POSIX@x:ja:.UTF-8:@latin:"), QStringList{u"ja"_s});
  EXPECT_EQ(languages("ja:C:zh_TW"), (QStringList{u"ja"_s, u"en"_s}));
  EXPECT_EQ(languages("POSIX:zh_TW"), QStringList{u"en"_s});
  EXPECT_EQ(languages("c:posix:CC:POSIX_x"), (QStringList{u"c"_s, u"posix"_s, u"CC"_s, u"POSIX_x"_s}));
  EXPECT_EQ(make({{"LC_ALL", "C.utf8"}, {"LC_MESSAGES", "POSIX"}, {"LANG", "C"}}).preferredLanguages(),
            QStringList());
  // Each as often as it is named.
  EXPECT_EQ(make({{"LANGUAGE", "ja:en:ja"}, {"LC_ALL", "ja.UTF-8"}, {"LANG", "ja"}}).preferredLanguages(),
            (QStringList{u"ja"_s, u"en"_s, u"ja"_s, u"ja"_s}));
}

TEST(LocaleVariables, TheLocaleIsTheFirstThatIsSet) {
  EXPECT_EQ(make({{"LC_ALL", "ja_JP.UTF-8"}, {"LC_MESSAGES", "de_DE"}, {"LANG", "fr_FR"}})
                .currentLocaleIdentifier(),
            u"ja_JP"_s);
  EXPECT_EQ(
      make({{"LC_ALL", ""}, {"LC_MESSAGES", "de_DE@euro"}, {"LANG", "fr_FR"}}).currentLocaleIdentifier(),
      u"de_DE"_s);
  EXPECT_EQ(make({{"LC_NUMERIC", "ja_JP"}, {"LANG", "fr_FR.UTF-8"}}).currentLocaleIdentifier(), u"fr_FR"_s);
  EXPECT_EQ(make({{"LC_NUMERIC", "ja_JP"}, {"LANGUAGE", "ja"}}).currentLocaleIdentifier(), QString());
  // That may be no language.
  EXPECT_EQ(make({{"LC_ALL", "C.UTF-8"}, {"LANG", "ja_JP"}}).currentLocaleIdentifier(), QString());
  EXPECT_EQ(make({{"LC_MESSAGES", "POSIX"}, {"LANG", "ja_JP"}}).currentLocaleIdentifier(), QString());
}

TEST(LocaleVariables, LocalizationsThatFitInTheUsersOrder) {
  EXPECT_EQ(localizations("fr:ja_JP:zh_TW:en_GB:zh_CN"),
            (QStringList{u"ja"_s, u"zh-Hant"_s, u"en"_s, u"zh-Hans"_s}));
  EXPECT_EQ(make({{"LANG", "ja_JP.UTF-8"}}).preferredLocalizations(localizationsOfTheApplication),
            QStringList{u"ja"_s});
}

TEST(LocaleVariables, EachLocalizationOnceAndNoneWhereNoneFits) {
  EXPECT_EQ(localizations("en_GB:ja:en_US:ja_JP"), (QStringList{u"en"_s, u"ja"_s}));
  EXPECT_EQ(localizations("fr_FR:de:xx:yue_HK:japanese:_:-:English"), QStringList());
}

TEST(LocaleVariables, ChineseByScriptOrTerritory) {
  for (const char* const language :
       {"zh_TW", "zh_HK", "zh_MO", "ZH_tw", "zh-Hant", "zh_Hant_HK", "zh-Hant-CN", "zho_TW", "chi_HK"}) {
    EXPECT_EQ(localizations(language), QStringList{u"zh-Hant"_s}) << language;
  }
  for (const char* const language :
       {"zh", "zh_CN", "zh_SG", "zh_US", "zh-Hans", "zh_Hans_HK", "zh-Hans-MO", "zho", "chi_CN"}) {
    EXPECT_EQ(localizations(language), QStringList{u"zh-Hans"_s}) << language;
  }
}

TEST(LocaleVariables, OnlyAvailableLocalizationsFit) {
  const LocaleVariables variables = makeLanguage("ja:zh_TW:en:de_AT");
  EXPECT_EQ(variables.preferredLocalizations({}), QStringList());
  EXPECT_EQ(variables.preferredLocalizations({u"de"_s, u"ja"_s}), (QStringList{u"ja"_s, u"de"_s}));
  EXPECT_EQ(variables.preferredLocalizations({u"zh-Hans"_s}), QStringList{u"zh-Hans"_s});
}

TEST(LocaleVariables, OtherSpellingsFit) {
  EXPECT_EQ(localizations("jpn_JP"), QStringList{u"ja"_s});
  EXPECT_EQ(localizations("JA"), QStringList{u"ja"_s});
  EXPECT_EQ(localizations("eng"), QStringList{u"en"_s});
  EXPECT_EQ(localizations("en_US_POSIX"), QStringList{u"en"_s});
}

// Absurd entries may mean anything, but the sensible entry behind them is found.
TEST(LocaleVariables, AbsurdValuesAreSurvived) {
  constexpr qsizetype large = 100'000;
  for (const QByteArray& absurd :
       {QByteArray(large, ':'), QByteArray(large, 'x'), QByteArray(large, '\0'), QByteArray(large, '_'),
        QByteArray(large, '@'), QByteArray(large, '.'), QByteArray("x:").repeated(large / 2),
        QByteArray("\xff\xfe\x80:\xc3"), QByteArray("\0\0:\0", 4), QByteArray("\xed\xa0\x80")}) {
    EXPECT_EQ(localizations(absurd + ":ja"), QStringList{u"ja"_s});
    const LocaleVariables variables = make({{"LC_ALL", absurd}, {"LANG", absurd}});
    EXPECT_LE(variables.preferredLanguages().size(), 1);
    EXPECT_EQ(variables.preferredLocalizations(localizationsOfTheApplication), QStringList());
    EXPECT_LE(variables.currentLocaleIdentifier().size(), large);
  }
}

}  // namespace
}  // namespace mireval
