#include "report/TrackSource.h"

#include "library/Catalogue.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mireval::soundtrack::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int mostLines = 40;

std::filesystem::path folder() {
  return std::filesystem::path(SOUNDTRACK) / "tracks";
}

std::string fileName(const Track& track) {
  return track.resourceName->toStdString() + ".orc";
}

/// Fails for every two pieces of a mood that have the same trait.
void expectDifferent(const std::function<QString(const TrackSource&)>& trait) {
  for (const auto& [mood, tracks] : catalogue()) {
    std::map<QString, std::string> seen;
    for (const Track& track : tracks) {
      const QString found = trait(TrackSource::read(folder() / fileName(track)).value_or(TrackSource()));
      const auto [other, isNew] = seen.emplace(found, fileName(track));
      EXPECT_TRUE(isNew) << other->second << " and " << fileName(track) << " share: " << found.toStdString();
    }
  }
}

TEST(TrackSourcesTest, AreThoseOfTheCatalogueAndNoOthers) {
  std::set<std::string> expected;
  for (const auto& [mood, tracks] : catalogue()) {
    for (const Track& track : tracks) {
      expected.insert(fileName(track));
    }
  }
  EXPECT_EQ(expected.size(), 64U);
  std::set<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(folder())) {
    found.insert(entry.path().filename().string());
  }
  EXPECT_EQ(found, expected);
}

TEST(TrackSourcesTest, SayWhatTheCatalogueCallsThemAndFollowTheRules) {
  const std::map<Mood, std::pair<double, double>> tempi{
      {Mood::relaxation, {50, 72}},
      {Mood::focus, {66, 104}},
      {Mood::creative, {72, 100}},
      {Mood::tempo, {112, 126}},
  };
  for (const auto& [mood, tracks] : catalogue()) {
    for (const Track& track : tracks) {
      SCOPED_TRACE(fileName(track));
      const auto source = TrackSource::read(folder() / fileName(track));
      ASSERT_TRUE(source && source->piece);
      EXPECT_EQ(source->title, track.title);
      EXPECT_EQ(source->mood, rawValue(mood));
      EXPECT_EQ(source->piece->title, track.title);
      EXPECT_GE(source->piece->tempo, tempi.at(mood).first);
      EXPECT_LE(source->piece->tempo, tempi.at(mood).second);
      EXPECT_LE(source->lineCount, mostLines);
      for (const QString& part : {source->description, source->lead, source->bed, source->firstProgression}) {
        EXPECT_FALSE(part.isEmpty());
      }
    }
  }
}

TEST(TrackSourcesTest, ShareNoTempoKeyAndFirstProgressionWithinAMood) {
  expectDifferent([](const TrackSource& source) {
    const Piece piece = source.piece.value_or(Piece());
    return u"%1 bpm, %2, %3"_s.arg(piece.tempo).arg(piece.key, source.firstProgression);
  });
}

TEST(TrackSourcesTest, ShareNoLeadAndBedWithinAMood) {
  expectDifferent([](const TrackSource& source) { return u"%1 over %2"_s.arg(source.lead, source.bed); });
}

TrackSource parse(const char* text) {
  return TrackSource::parse(QString::fromUtf8(text));
}

TEST(TrackSourceTest, ReadsAWholeTrack) {
  const TrackSource source = parse(R"(; Quiet Index - focus - a page turned slowly - and back
#include "studio.orc"
piece   "Quiet Index", 72.5, "Db  major", 3, .1      ; "not", 1, "this"
chords  "B", "Gm9:2 Am7:2"
chords  "A", " Dm9:2   Bbmaj7/D:2 "
form    "ABA", 4
;tune   "horn", 60, "1", "1 1 1"
veil    "rain",                "1 1 1"
keys    "felt", 62, "..1...3.", "1 1 1"
wash    "pad", 60,             "1 1 1"
wash    "glass", 60,           "1 1 1"
tune    "flute", 74, "5.....", "1 1 1"
tune    "horn", 74, "5.....",  "1 1 1"
)");
  EXPECT_EQ(source.lineCount, 13);
  EXPECT_EQ(source.title, u"Quiet Index"_s);
  EXPECT_EQ(source.mood, u"focus"_s);
  EXPECT_EQ(source.description, u"a page turned slowly - and back"_s);
  ASSERT_TRUE(source.piece);
  EXPECT_EQ(source.piece->title, u"Quiet Index"_s);
  EXPECT_EQ(source.piece->tempo, 72.5);
  EXPECT_EQ(source.piece->key, u"Db major"_s);
  EXPECT_EQ(source.piece->beatsPerBar, 3);
  EXPECT_EQ(source.firstProgression, u"Dm9:2 Bbmaj7/D:2"_s);
  EXPECT_EQ(source.lead, u"flute"_s);
  EXPECT_EQ(source.bed, u"pad"_s);
}

TEST(TrackSourceTest, TakesOtherLanesForAMissingTuneOrWash) {
  const TrackSource withoutTune = parse("wash \"pad\"\nstab \"organ\"\nkeys \"felt\"\nkeys \"harp\"\n");
  EXPECT_EQ(withoutTune.lead, u"felt"_s);
  EXPECT_EQ(withoutTune.bed, u"pad"_s);
  EXPECT_EQ(parse("stab \"organ\"\nkeys \"felt\"\ntune \"horn\"\n").bed, u"organ"_s);
  EXPECT_EQ(parse("keys \"felt\"\nstab \"organ\"\ntune \"horn\"\n").bed, u"felt"_s);
}

TEST(TrackSourceTest, KnowsNothingOfAnEmptyFile) {
  const TrackSource source = parse("");
  EXPECT_EQ(source.lineCount, 0);
  EXPECT_TRUE(source.title.isEmpty());
  EXPECT_FALSE(source.piece);
  EXPECT_TRUE(source.firstProgression.isEmpty());
  EXPECT_TRUE(source.lead.isEmpty());
  EXPECT_TRUE(source.bed.isEmpty());
}

TEST(TrackSourceTest, RefusesAFirstLineThatIsNoHead) {
  for (const char* const text :
       {"; Rain Veil, relaxation, warm rain\n", "; Rain Veil - relaxation - \n", "; Rain Veil - relaxation\n",
        "Rain Veil - relaxation - warm rain\n", "\n; Rain Veil - relaxation - warm rain\n"}) {
    EXPECT_TRUE(parse(text).title.isEmpty()) << text;
  }
}

TEST(TrackSourceTest, RefusesAPieceThatLacksSomething) {
  for (const char* const text :
       {R"(chords "A", "C")", R"(; piece "A", 60, "C major")", R"(piece "A", 60)", R"(piece "A", "C major")",
        R"(piece "A", x, "C major")", R"(piece "", 60, "C major")", R"(pieces "A", 60, "C major")"}) {
    EXPECT_FALSE(parse(text).piece) << text;
  }
  EXPECT_EQ(parse("piece\"A\",60,\"C major\"").piece.value_or(Piece()).beatsPerBar, 4);
}

TEST(TrackSourceTest, FindsNoProgressionForAnUnknownSection) {
  for (const char* const text :
       {"chords \"A\", \"C\"\nform \"BA\", 4\n", "chords \"A\", \"C\"\n", "form \"A\", 4\n"}) {
    EXPECT_TRUE(parse(text).firstProgression.isEmpty()) << text;
  }
}

TEST(TrackSourceTest, TakesASemicolonInsideAStringForText) {
  const TrackSource source = parse("piece \"Rain; and Veil, too\", 60, \"C minor\" ; a comment");
  ASSERT_TRUE(source.piece);
  EXPECT_EQ(source.piece->title.toStdString(), "Rain; and Veil, too");
}

TEST(TrackSourceTest, CountsLinesWithAndWithoutAnEndOfTheLast) {
  EXPECT_EQ(parse("a\nb\n").lineCount, 2);
  EXPECT_EQ(parse("a\nb").lineCount, 2);
  EXPECT_EQ(parse("a\n\n").lineCount, 2);
}

TEST(TrackSourceTest, SaysThatAFileIsMissing) {
  EXPECT_FALSE(TrackSource::read(folder() / "absent.orc"));
}

}  // namespace
}  // namespace mireval::soundtrack::test
