#include "fakes/FakeSystemLanguages.h"
#include "localization/AppLocalization.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

AppLanguage detect(const QStringList& preferredLanguages, const QStringList& preferredLocalizations = {},
                   const QString& currentLocaleIdentifier = {}) {
  FakeSystemLanguages languages;
  languages.setPreferredLanguages(preferredLanguages);
  languages.setPreferredLocalizations(preferredLocalizations);
  languages.setCurrentLocaleIdentifier(currentLocaleIdentifier);
  return AppLocalization::detectSystemLanguage(languages);
}

TEST(SystemLanguageTest, LanguageOfATag) {
  struct Row {
    AppLanguage language;
    QStringList tags;
  };
  for (const Row& row : {
           Row{AppLanguage::chineseTraditional,
               {u"zh-Hant"_s, u"zh-Hant-TW"_s, u"zh-Hant-HK"_s, u"zh-TW"_s, u"ZH_tw"_s, u"zh_HK"_s,
                u"zh-MO"_s, u"zh_TW.UTF-8"_s, u"ZH-HANT"_s, u"zh-hkx"_s}},
           Row{AppLanguage::chineseSimplified,
               {u"zh"_s, u"zh-CN"_s, u"zh_CN"_s, u"zh-SG"_s, u"zh-Hans"_s, u"zh-Hans-HK"_s, u"zh-Hans-MO"_s,
                u"zh-Hans-TW"_s, u"ZH"_s, u"zh_CN.GB18030"_s, u"zh-"_s, u"zhx"_s, u"zh--tw"_s}},
           Row{AppLanguage::japanese, {u"ja"_s, u"ja-JP"_s, u"ja_JP.UTF-8"_s, u"JA"_s, u"jav"_s}},
           Row{AppLanguage::english, {u"en"_s, u"en-GB"_s, u"en_US.UTF-8"_s, u"EN"_s, u"enm"_s}},
       }) {
    for (const QString& tag : row.tags) {
      // Found instead if the tag is not recognised.
      const QString other = row.language == AppLanguage::english ? u"ja"_s : u"en"_s;
      EXPECT_EQ(detect({tag, other}), row.language) << tag.toStdString();
    }
  }
}

TEST(SystemLanguageTest, OtherTagsArePassedOver) {
  for (const QString& tag : {u""_s, u" ja"_s, u"-ja"_s, u"fr-FR"_s, u"j"_s, u"z"_s, u"e"_s, u"C"_s,
                             u"POSIX"_s, u"yue-Hant-HK"_s, u"de-JA"_s, u"x-en"_s}) {
    EXPECT_EQ(detect({tag, u"ja"_s}), AppLanguage::japanese) << tag.toStdString();
    EXPECT_EQ(detect({tag, u"zh"_s}), AppLanguage::chineseSimplified) << tag.toStdString();
  }
}

TEST(SystemLanguageTest, TheFirstOfOursWins) {
  EXPECT_EQ(detect({u"fr-FR"_s, u"ja-JP"_s}), AppLanguage::japanese);
  EXPECT_EQ(detect({u"fr-FR"_s, u"en-GB"_s, u"zh-Hant"_s}), AppLanguage::english);
  EXPECT_EQ(detect({u"zh_CN"_s, u"zh_TW"_s, u"en"_s}), AppLanguage::chineseSimplified);
  EXPECT_EQ(detect({u"de"_s, u"de"_s, u"zh_TW"_s, u"zh_CN"_s}), AppLanguage::chineseTraditional);
}

TEST(SystemLanguageTest, TheListsAreReadInOrder) {
  EXPECT_EQ(detect({u"ja"_s}, {u"zh-Hans"_s}, u"zh_TW"_s), AppLanguage::japanese);
  EXPECT_EQ(detect({u"de-DE"_s}, {u"zh-Hans"_s}, u"zh_TW"_s), AppLanguage::chineseSimplified);
  EXPECT_EQ(detect({u"de-DE"_s}, {u"fr"_s, u"it"_s}, u"zh_TW"_s), AppLanguage::chineseTraditional);
  EXPECT_EQ(detect({}, {u"ja"_s}, u"zh_TW"_s), AppLanguage::japanese);
  EXPECT_EQ(detect({}, {}, u"ja_JP"_s), AppLanguage::japanese);
  EXPECT_EQ(detect({u"de-DE"_s}, {u"en"_s}, u"ja_JP"_s), AppLanguage::english);
}

TEST(SystemLanguageTest, NoneOfOursIsEnglish) {
  EXPECT_EQ(detect({u"fr-FR"_s}, {}, u"fr_FR"_s), AppLanguage::english);
  EXPECT_EQ(detect({}), AppLanguage::english);
  EXPECT_EQ(detect({u""_s}, {u""_s}, u""_s), AppLanguage::english);
}

}  // namespace
}  // namespace mireval
