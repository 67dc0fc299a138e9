#include "localization/ExpectedTexts.h"
#include "localization/StringTables.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QMetaEnum>

#include <map>
#include <span>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

class StringTablesTest : public testing::TestWithParam<AppLanguage> {
 protected:
  static const LanguageTables& tables() { return shippedTables()[static_cast<std::size_t>(GetParam())]; }

  template <typename Key>
  static void expectSame(std::span<const std::pair<Key, QStringView>> table,
                         const std::vector<ExpectedText<Key>>& expected) {
    ASSERT_EQ(table.size(), expected.size());
    ASSERT_EQ(table.size(), QMetaEnum::fromType<Key>().keyCount());
    for (std::size_t row = 0; row < expected.size(); ++row) {
      EXPECT_EQ(table[row].first, expected[row].key) << row;
      EXPECT_EQ(table[row].second, expected[row].text(GetParam())) << row;
      EXPECT_FALSE(table[row].second.isEmpty()) << row;
    }
  }
};

TEST_P(StringTablesTest, HoldEveryTextInOrder) {
  EXPECT_EQ(tables().language, GetParam());
  expectSame(tables().texts, expectedTexts);
}

TEST_P(StringTablesTest, HoldEveryMoodTitleInOrder) {
  expectSame(tables().moodTitles, expectedMoodTitles);
}

TEST_P(StringTablesTest, HoldEveryMoodSubtitleInOrder) {
  expectSame(tables().moodSubtitles, expectedMoodSubtitles);
}

INSTANTIATE_TEST_SUITE_P(, StringTablesTest, testing::ValuesIn(allAppLanguages),
                         [](const auto& test) { return rawValue(test.param).remove(u'-').toStdString(); });

QString shippedText(AppLanguage language, L10nKey key) {
  return shippedTables()[static_cast<std::size_t>(language)]
      .texts[static_cast<std::size_t>(key)]
      .second.toString();
}

// By their code points, which no look-alike shares.
TEST(ShippedTablesTest, TraditionalAndSimplifiedAreNotMixedUp) {
  EXPECT_EQ(shippedText(AppLanguage::chineseTraditional, L10nKey::ready), u"\u5C31\u7DD2"_s);
  EXPECT_EQ(shippedText(AppLanguage::chineseSimplified, L10nKey::ready), u"\u5C31\u7EEA"_s);
}

TEST(ShippedTablesTest, PlainSpacesSurroundTheName) {
  EXPECT_TRUE(shippedText(AppLanguage::chineseSimplified, L10nKey::languageDescription)
                  .startsWith(u"\u9009\u62E9\u0020Mireval\u0020\u7684"_s));
  EXPECT_TRUE(shippedText(AppLanguage::chineseTraditional, L10nKey::languageDescription)
                  .startsWith(u"\u9078\u64C7\u0020Mireval\u0020\u7684"_s));
  EXPECT_TRUE(
      shippedText(AppLanguage::japanese, L10nKey::languageDescription).startsWith(u"Mireval\u0020\u306E"_s));
}

TEST(ShippedTablesTest, ChineseAndJapanesePunctuationIsFullWidth) {
  constexpr QChar fullWidthComma(u'\uFF0C');
  constexpr QChar ideographicComma(u'\u3001');
  constexpr QChar ideographicFullStop(u'\u3002');
  const std::map<AppLanguage, QChar> commas{{AppLanguage::chineseSimplified, fullWidthComma},
                                            {AppLanguage::chineseTraditional, fullWidthComma},
                                            {AppLanguage::japanese, ideographicComma}};
  for (const auto& [language, comma] : commas) {
    const QString subtitle = shippedText(language, L10nKey::heroSubtitle);
    EXPECT_EQ(subtitle.count(comma), 2) << subtitle.toStdString();
    EXPECT_TRUE(subtitle.endsWith(ideographicFullStop));
    EXPECT_TRUE(shippedText(language, L10nKey::languageDescription).endsWith(ideographicFullStop));
    for (const auto& [key, text] : shippedTables()[static_cast<std::size_t>(language)].texts) {
      EXPECT_FALSE(text.contains(u'.') || text.contains(u',')) << text.toString().toStdString();
    }
  }
  EXPECT_EQ(shippedText(AppLanguage::japanese, L10nKey::heroTitle).count(ideographicComma), 1);
}

}  // namespace
}  // namespace mireval
