#include "library/Mood.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QMetaEnum>

#include <limits>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct MoodRow {
  Mood mood;
  QString rawValue;
  QString title;
  QString symbolName;
};

std::vector<MoodRow> moodRows() {
  return {
      {Mood::relaxation, u"relaxation"_s, u"Relaxation"_s, u"wind"_s},
      {Mood::focus, u"focus"_s, u"Focus"_s, u"scope"_s},
      {Mood::creative, u"creative"_s, u"Creative"_s, u"sparkles"_s},
      {Mood::tempo, u"tempo"_s, u"Tempo"_s, u"metronome"_s},
  };
}

TEST(MoodTest, AllMoodsAreInDeclarationOrder) {
  const std::vector<Mood> all(allMoods.begin(), allMoods.end());
  EXPECT_EQ(all, (std::vector{Mood::relaxation, Mood::focus, Mood::creative, Mood::tempo}));
}

TEST(MoodTest, NamesOfEachMood) {
  for (const MoodRow& row : moodRows()) {
    EXPECT_EQ(rawValue(row.mood), row.rawValue);
    EXPECT_EQ(id(row.mood), row.rawValue);
    EXPECT_EQ(title(row.mood), row.title);
    EXPECT_EQ(symbolName(row.mood), row.symbolName);
  }
}

TEST(MoodTest, IsMadeFromItsRawValue) {
  for (const MoodRow& row : moodRows()) {
    EXPECT_EQ(moodFromRawValue(row.rawValue), row.mood);
  }
}

TEST(MoodTest, IsNotMadeFromAnyOtherText) {
  for (const QString& text : {u""_s, u"Focus"_s, u"FOCUS"_s, u" focus"_s, u"tempo "_s, u"foc"_s, u"focuss"_s,
                              u"relax"_s, u"Tempo"_s, u"0"_s}) {
    EXPECT_EQ(moodFromRawValue(text), std::nullopt) << text.toStdString();
  }
  EXPECT_EQ(moodFromRawValue(QString()), std::nullopt);
}

// Views name the moods by these.
TEST(MoodTest, EnumeratorsAreKnownToTheMetaObjectByTheirRawValues) {
  const auto enumerators = QMetaEnum::fromType<Mood>();
  ASSERT_EQ(enumerators.keyCount(), 4);
  for (const MoodRow& row : moodRows()) {
    EXPECT_EQ(QString::fromLatin1(enumerators.valueToKey(static_cast<int>(row.mood))), row.rawValue);
  }
}

TEST(MoodTest, CoverImageNameHasTwoDigits) {
  EXPECT_EQ(coverImageName(Mood::focus, 3), u"focus-03"_s);
  EXPECT_EQ(coverImageName(Mood::relaxation, 9), u"relaxation-09"_s);
  EXPECT_EQ(coverImageName(Mood::creative, 1), u"creative-01"_s);
  EXPECT_EQ(coverImageName(Mood::creative, 10), u"creative-10"_s);
}

TEST(MoodTest, CoverImageNameClampsTheIndex) {
  EXPECT_EQ(coverImageName(Mood::relaxation, 0), u"relaxation-01"_s);
  EXPECT_EQ(coverImageName(Mood::creative, -5), u"creative-01"_s);
  EXPECT_EQ(coverImageName(Mood::creative, 11), u"creative-10"_s);
  EXPECT_EQ(coverImageName(Mood::tempo, 14), u"tempo-10"_s);
  EXPECT_EQ(coverImageName(Mood::tempo, std::numeric_limits<std::int64_t>::max()), u"tempo-10"_s);
  EXPECT_EQ(coverImageName(Mood::tempo, std::numeric_limits<std::int64_t>::min()), u"tempo-01"_s);
  // Would pass as 3 if the index were cut to 32 bits before it is clamped.
  EXPECT_EQ(coverImageName(Mood::tempo, (std::int64_t{1} << 32) + 3), u"tempo-10"_s);
}

}  // namespace
}  // namespace mireval
