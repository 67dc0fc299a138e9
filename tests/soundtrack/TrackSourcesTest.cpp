#include "report/TrackSource.h"

#include "library/Catalogue.h"

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

/// The parsed sources of one mood by file name, in catalogue order. Files that cannot be read are left out.
std::vector<std::pair<std::string, TrackSource>> sourcesOf(Mood mood) {
  std::vector<std::pair<std::string, TrackSource>> sources;
  for (const Track& track : catalogue().at(mood)) {
    if (auto source = TrackSource::read(folder() / fileName(track))) {
      sources.emplace_back(fileName(track), std::move(*source));
    }
  }
  return sources;
}

/// Fails for every two pieces of a mood that have the same trait.
void expectDifferent(const std::function<QString(const TrackSource&)>& trait) {
  for (const Mood mood : allMoods) {
    std::map<QString, std::string> seen;
    for (const auto& [file, source] : sourcesOf(mood)) {
      const auto [other, isNew] = seen.emplace(trait(source), file);
      EXPECT_TRUE(isNew) << other->second << " and " << file << " share: " << trait(source).toStdString();
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
  for (const std::string& name : expected) {
    EXPECT_TRUE(found.contains(name)) << name << " is missing";
  }
  for (const std::string& name : found) {
    EXPECT_TRUE(expected.contains(name)) << name << " belongs to no track";
  }
}

TEST(TrackSourcesTest, SayWhatTheCatalogueCallsThem) {
  for (const auto& [mood, tracks] : catalogue()) {
    for (const Track& track : tracks) {
      SCOPED_TRACE(fileName(track));
      const auto source = TrackSource::read(folder() / fileName(track));
      ASSERT_TRUE(source);
      EXPECT_EQ(source->title.toStdString(), track.title.toStdString());
      EXPECT_EQ(source->mood.toStdString(), rawValue(mood).toStdString());
      EXPECT_FALSE(source->description.isEmpty());
      ASSERT_TRUE(source->piece);
      EXPECT_EQ(source->piece->title.toStdString(), track.title.toStdString());
    }
  }
}

TEST(TrackSourcesTest, AreShort) {
  for (const Mood mood : allMoods) {
    for (const auto& [file, source] : sourcesOf(mood)) {
      EXPECT_LE(source.lineCount, mostLines) << file;
    }
  }
}

TEST(TrackSourcesTest, HaveTheTempoOfTheirMood) {
  const std::map<Mood, std::pair<double, double>> tempi{
      {Mood::relaxation, {50, 72}},
      {Mood::focus, {66, 104}},
      {Mood::creative, {72, 100}},
      {Mood::tempo, {112, 126}},
  };
  for (const auto& [mood, range] : tempi) {
    for (const auto& [file, source] : sourcesOf(mood)) {
      ASSERT_TRUE(source.piece) << file;
      EXPECT_GE(source.piece->tempo, range.first) << file;
      EXPECT_LE(source.piece->tempo, range.second) << file;
    }
  }
}

TEST(TrackSourcesTest, HaveALeadABedAndAProgression) {
  for (const Mood mood : allMoods) {
    for (const auto& [file, source] : sourcesOf(mood)) {
      EXPECT_FALSE(source.lead.isEmpty()) << file;
      EXPECT_FALSE(source.bed.isEmpty()) << file;
      EXPECT_FALSE(source.firstProgression.isEmpty()) << file;
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
  EXPECT_EQ(source.title.toStdString(), "Quiet Index");
  EXPECT_EQ(source.mood.toStdString(), "focus");
  EXPECT_EQ(source.description.toStdString(), "a page turned slowly - and back");
  ASSERT_TRUE(source.piece);
  EXPECT_EQ(source.piece->title.toStdString(), "Quiet Index");
  EXPECT_EQ(source.piece->tempo, 72.5);
  EXPECT_EQ(source.piece->key.toStdString(), "Db major");
  EXPECT_EQ(source.piece->beatsPerBar, 3);
  EXPECT_EQ(source.firstProgression.toStdString(), "Dm9:2 Bbmaj7/D:2");
  EXPECT_EQ(source.lead.toStdString(), "flute");
  EXPECT_EQ(source.bed.toStdString(), "pad");
}

TEST(TrackSourceTest, TakesTheFirstKeysForAMissingTune) {
  const TrackSource source = parse(
      "wash \"pad\", 60, \"1\"\nkeys \"felt\", 60, \"1\", \"1\"\n"
      "keys \"harp\", 60, \"1\", \"1\"\n");
  EXPECT_EQ(source.lead.toStdString(), "felt");
  EXPECT_EQ(source.bed.toStdString(), "pad");
}

TEST(TrackSourceTest, TakesTheFirstStabOrKeysForAMissingWash) {
  EXPECT_EQ(parse("stab \"organ\"\nkeys \"felt\"\ntune \"horn\"\n").bed.toStdString(), "organ");
  EXPECT_EQ(parse("keys \"felt\"\nstab \"organ\"\ntune \"horn\"\n").bed.toStdString(), "felt");
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
  EXPECT_TRUE(parse("; Rain Veil, relaxation, warm rain\n").title.isEmpty());
  EXPECT_TRUE(parse("; Rain Veil - relaxation - \n").title.isEmpty());
  EXPECT_TRUE(parse("; Rain Veil - relaxation\n").title.isEmpty());
  EXPECT_TRUE(parse("Rain Veil - relaxation - warm rain\n").title.isEmpty());
  EXPECT_TRUE(parse("\n; Rain Veil - relaxation - warm rain\n").title.isEmpty());
}

TEST(TrackSourceTest, RefusesAPieceThatLacksSomething) {
  EXPECT_FALSE(parse("chords \"A\", \"C\"\n").piece);
  EXPECT_FALSE(parse("; piece \"A\", 60, \"C major\"\n").piece);
  EXPECT_FALSE(parse("piece \"A\", 60\n").piece);
  EXPECT_FALSE(parse("piece \"A\", \"C major\"\n").piece);
  EXPECT_FALSE(parse("piece \"\", 60, \"C major\"\n").piece);
  EXPECT_FALSE(parse("pieces \"A\", 60, \"C major\"\n").piece);
  EXPECT_EQ(parse("piece\"A\",60,\"C major\"").piece.value_or(Piece()).beatsPerBar, 4);
}

TEST(TrackSourceTest, FindsNoProgressionForAnUnknownSection) {
  EXPECT_TRUE(parse("chords \"A\", \"C\"\nform \"BA\", 4\n").firstProgression.isEmpty());
  EXPECT_TRUE(parse("chords \"A\", \"C\"\n").firstProgression.isEmpty());
  EXPECT_TRUE(parse("form \"A\", 4\n").firstProgression.isEmpty());
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
