#include "localization/AppLanguage.h"
#include "localization/AppLanguageOption.h"
#include "localization/L10nKey.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QMetaEnum>

#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

TEST(AppLanguageTest, AllLanguagesAreInDeclarationOrder) {
  const std::vector<AppLanguage> all(allAppLanguages.begin(), allAppLanguages.end());
  EXPECT_EQ(all, (std::vector{AppLanguage::english, AppLanguage::chineseSimplified,
                              AppLanguage::chineseTraditional, AppLanguage::japanese}));
  EXPECT_EQ(QMetaEnum::fromType<AppLanguage>().keyCount(), all.size());
}

TEST(AppLanguageTest, NamesOfEachLanguage) {
  struct Row {
    AppLanguage language;
    QString rawValue;
    QString displayName;
    AppLanguageOption option;
    QString fontFamily;
  };
  using enum AppLanguageOption;
  for (const auto& [language, tag, name, option, font] : {
           Row{AppLanguage::english, u"en"_s, u"English"_s, english, u""_s},
           Row{AppLanguage::chineseSimplified, u"zh-Hans"_s, u"简体中文"_s, chineseSimplified,
               u"Noto Sans CJK SC"_s},
           Row{AppLanguage::chineseTraditional, u"zh-Hant"_s, u"繁體中文"_s, chineseTraditional,
               u"Noto Sans CJK TC"_s},
           Row{AppLanguage::japanese, u"ja"_s, u"日本語"_s, japanese, u"Noto Sans CJK JP"_s},
       }) {
    EXPECT_EQ(rawValue(language), tag);
    EXPECT_EQ(id(language), tag);
    EXPECT_EQ(displayName(language), name);
    EXPECT_EQ(fontFamily(language), font);
    EXPECT_EQ(appLanguageFromRawValue(tag), language);
    EXPECT_EQ(appLanguageFromOption(option), language);
  }
}

TEST(AppLanguageTest, IsNotMadeFromAnyOtherText) {
  for (const QString& text : {QString(), u""_s, u"EN"_s, u"en-GB"_s, u"en "_s, u"zh"_s, u"zh-hans"_s,
                              u"zh_Hans"_s, u"zh-Hant-TW"_s, u"ja-JP"_s, u"japanese"_s, u"english"_s}) {
    EXPECT_EQ(appLanguageFromRawValue(text), std::nullopt) << text.toStdString();
  }
}

TEST(AppLanguageTest, TheOptionSystemFixesNone) {
  EXPECT_EQ(appLanguageFromOption(AppLanguageOption::system), std::nullopt);
}

TEST(AppLanguageTest, EachIsFoundByItsOwnTag) {
  for (const AppLanguage language : allAppLanguages) {
    EXPECT_EQ(appLanguageFromTag(rawValue(language).toLower()), language) << rawValue(language).toStdString();
  }
}

TEST(AppLanguageOptionTest, AllOptionsAreInDeclarationOrder) {
  const std::vector<AppLanguageOption> all(allAppLanguageOptions.begin(), allAppLanguageOptions.end());
  EXPECT_EQ(all, (std::vector{AppLanguageOption::system, AppLanguageOption::english,
                              AppLanguageOption::chineseSimplified, AppLanguageOption::chineseTraditional,
                              AppLanguageOption::japanese}));
}

TEST(AppLanguageOptionTest, RawValueOfEachOption) {
  struct Row {
    AppLanguageOption option;
    QString rawValue;
  };
  const auto enumerators = QMetaEnum::fromType<AppLanguageOption>();
  EXPECT_EQ(enumerators.keyCount(), allAppLanguageOptions.size());
  for (const auto& [option, name] : {
           Row{AppLanguageOption::system, u"system"_s},
           Row{AppLanguageOption::english, u"english"_s},
           Row{AppLanguageOption::chineseSimplified, u"chineseSimplified"_s},
           Row{AppLanguageOption::chineseTraditional, u"chineseTraditional"_s},
           Row{AppLanguageOption::japanese, u"japanese"_s},
       }) {
    EXPECT_EQ(rawValue(option), name);
    EXPECT_EQ(id(option), name);
    EXPECT_EQ(appLanguageOptionFromRawValue(name), option);
    EXPECT_EQ(QString::fromLatin1(enumerators.valueToKey(static_cast<int>(option))), name);
  }
}

TEST(AppLanguageOptionTest, IsNotMadeFromAnyOtherText) {
  for (const QString& text :
       {QString(), u""_s, u"System"_s, u"Japanese"_s, u"JAPANESE"_s, u"ja"_s, u"en"_s, u"english "_s,
        u" english"_s, u"chinese"_s, u"chinesesimplified"_s, u"japanese\0"_s, u"0"_s}) {
    EXPECT_EQ(appLanguageOptionFromRawValue(text), std::nullopt) << text.toStdString();
  }
}

TEST(L10nKeyTest, RawValueOfEachKey) {
  struct Row {
    L10nKey key;
    QString rawValue;
  };
  const std::vector<Row> rows{
      {L10nKey::heroTitle, u"heroTitle"_s},
      {L10nKey::heroSubtitle, u"heroSubtitle"_s},
      {L10nKey::modesHeading, u"modesHeading"_s},
      {L10nKey::playing, u"playing"_s},
      {L10nKey::ready, u"ready"_s},
      {L10nKey::settingsTitle, u"settingsTitle"_s},
      {L10nKey::languageTitle, u"languageTitle"_s},
      {L10nKey::languageDescription, u"languageDescription"_s},
      {L10nKey::followSystem, u"followSystem"_s},
      {L10nKey::nowPlaying, u"nowPlaying"_s},
      {L10nKey::selectMode, u"selectMode"_s},
      {L10nKey::quit, u"quit"_s},
  };
  const auto enumerators = QMetaEnum::fromType<L10nKey>();
  ASSERT_EQ(enumerators.keyCount(), 12);
  for (int position = 0; const auto& [key, name] : rows) {
    EXPECT_EQ(rawValue(key), name);
    EXPECT_EQ(l10nKeyFromRawValue(name), key);
    EXPECT_EQ(QString::fromLatin1(enumerators.key(position++)), name);
  }
}

TEST(L10nKeyTest, IsNotMadeFromAnyOtherText) {
  for (const QString& text : {QString(), u""_s, u"NowPlaying"_s, u"now_playing"_s, u"nowplaying"_s,
                              u"nowPlaying "_s, u"L10nKey::quit"_s, u"Quit"_s}) {
    EXPECT_EQ(l10nKeyFromRawValue(text), std::nullopt) << text.toStdString();
  }
}

}  // namespace
}  // namespace mireval
