#include "library/Catalogue.h"
#include "library/ExpectedTracks.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

TEST(CatalogueTest, HoldsTheExpectedTracksInOrder) {
  ASSERT_EQ(catalogue().size(), 4U);
  std::map<Mood, qsizetype> position;
  for (const ExpectedTrack& expected : expectedTracks) {
    const QList<Track>& list = catalogue().at(expected.mood);
    const qsizetype index = position[expected.mood]++;
    ASSERT_LT(index, list.size());
    const Track& track = list.at(index);
    EXPECT_EQ(track.mood, expected.mood);
    EXPECT_EQ(track.title, QString::fromLatin1(expected.title));
    EXPECT_EQ(track.detail, QString::fromLatin1(expected.detail));
    EXPECT_EQ(track.resourceName, QString::fromLatin1(expected.resourceName));
    EXPECT_EQ(track.fileExtension, u"m4a"_s);
    EXPECT_EQ(track.availability, TrackAvailability::included());
  }
  for (const Mood mood : allMoods) {
    EXPECT_EQ(catalogue().at(mood).size(), 16) << rawValue(mood).toStdString();
  }
}

TEST(CatalogueTest, IdsAreDistinctRandomUuids) {
  std::set<QUuid> ids;
  for (const auto& [mood, list] : catalogue()) {
    for (const Track& track : list) {
      EXPECT_EQ(track.id.version(), QUuid::Random);
      EXPECT_EQ(track.id.variant(), QUuid::DCE);
      ids.insert(track.id);
    }
  }
  EXPECT_EQ(ids.size(), 64U);
}

TEST(CatalogueTest, StaysTheSame) {
  const Catalogue before = catalogue();
  EXPECT_EQ(&catalogue(), &catalogue());
  EXPECT_EQ(catalogue(), before);
}

constexpr std::array threeTitles{"One"_L1, "Two"_L1, "Three"_L1};
constexpr std::array twoDetails{"first"_L1, "second"_L1};

TEST(MakeTracksTest, StopsAtTheShorterTable) {
  const QList<Track> moreTitles = makeTracks(threeTitles, twoDetails, Mood::creative);
  ASSERT_EQ(moreTitles.size(), 2);
  EXPECT_EQ(moreTitles.at(0).title, u"One"_s);
  EXPECT_EQ(moreTitles.at(0).detail, u"first"_s);
  EXPECT_EQ(moreTitles.at(0).resourceName, u"creative-1"_s);
  EXPECT_EQ(moreTitles.at(1).title, u"Two"_s);
  EXPECT_EQ(moreTitles.at(1).detail, u"second"_s);
  EXPECT_EQ(moreTitles.at(1).resourceName, u"creative-2"_s);
  EXPECT_EQ(moreTitles.at(1).mood, Mood::creative);

  const QList<Track> moreDetails = makeTracks(twoDetails, threeTitles, Mood::tempo);
  ASSERT_EQ(moreDetails.size(), 2);
  EXPECT_EQ(moreDetails.at(1).title, u"second"_s);
  EXPECT_EQ(moreDetails.at(1).detail, u"Two"_s);
}

TEST(MakeTracksTest, MakesNothingOfAnEmptyTable) {
  EXPECT_TRUE(makeTracks({}, twoDetails, Mood::focus).isEmpty());
  EXPECT_TRUE(makeTracks(threeTitles, {}, Mood::focus).isEmpty());
  EXPECT_TRUE(makeTracks({}, {}, Mood::focus).isEmpty());
}

TEST(MakeTracksTest, EachCallMakesFreshIds) {
  const QList<Track> one = makeTracks(threeTitles, twoDetails, Mood::focus);
  const QList<Track> other = makeTracks(threeTitles, twoDetails, Mood::focus);
  ASSERT_EQ(one.size(), other.size());
  for (qsizetype i = 0; i < one.size(); ++i) {
    EXPECT_NE(one.at(i).id, other.at(i).id);
  }
}

TEST(MakeTracksTest, NumbersHaveNoLeadingZeros) {
  const std::array<QLatin1String, 12> titles{};
  const QList<Track> tracks = makeTracks(titles, titles, Mood::relaxation);
  ASSERT_EQ(tracks.size(), 12);
  EXPECT_EQ(tracks.at(8).resourceName, u"relaxation-9"_s);
  EXPECT_EQ(tracks.at(9).resourceName, u"relaxation-10"_s);
  EXPECT_EQ(tracks.at(11).resourceName, u"relaxation-12"_s);
}

}  // namespace
}  // namespace mireval
