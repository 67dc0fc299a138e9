#include "library/Track.h"

#include <gtest/gtest.h>

#include <QMetaProperty>

#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

Track sampleTrack() {
  return {
      .id = QUuid(u"{8f14e45f-ceea-467f-ab4c-2d3f6c1a9b01}"_s),
      .mood = Mood::focus,
      .title = u"Single Thread"_s,
      .detail = u"Dark drone"_s,
      .resourceName = u"focus-1"_s,
      .fileExtension = u"m4a"_s,
      .availability = TrackAvailability::upcomingCloud(2),
  };
}

struct Change {
  std::string what;
  std::function<void(Track&)> apply;
};

std::vector<Change> changesOfOneField() {
  return {
      {"id", [](Track& track) { track.id = QUuid(u"{8f14e45f-ceea-467f-ab4c-2d3f6c1a9b02}"_s); }},
      {"mood", [](Track& track) { track.mood = Mood::tempo; }},
      {"title", [](Track& track) { track.title = u"Single thread"_s; }},
      {"detail", [](Track& track) { track.detail = u"Dark drone "_s; }},
      {"resourceName", [](Track& track) { track.resourceName = u"focus-2"_s; }},
      {"resourceName empty", [](Track& track) { track.resourceName = u""_s; }},
      {"resourceName absent", [](Track& track) { track.resourceName.reset(); }},
      {"fileExtension", [](Track& track) { track.fileExtension = u"mp3"_s; }},
      {"fileExtension empty", [](Track& track) { track.fileExtension = u""_s; }},
      {"fileExtension absent", [](Track& track) { track.fileExtension.reset(); }},
      {"slot", [](Track& track) { track.availability = TrackAvailability::upcomingCloud(3); }},
      {"availability", [](Track& track) { track.availability = TrackAvailability::included(); }},
  };
}

TEST(TrackTest, CopyIsEqualAndHashesEqual) {
  const Track track = sampleTrack();
  // Equal content, in strings of its own.
  const Track copy = sampleTrack();
  EXPECT_EQ(track, copy);
  EXPECT_EQ(std::hash<Track>{}(track), std::hash<Track>{}(copy));
}

TEST(TrackTest, EachFieldCountsInEqualityAndHashing) {
  std::unordered_set<Track> tracks{sampleTrack(), sampleTrack()};
  std::unordered_set<std::size_t> hashes{std::hash<Track>{}(sampleTrack())};
  for (const Change& change : changesOfOneField()) {
    Track changed = sampleTrack();
    change.apply(changed);
    EXPECT_TRUE(tracks.insert(changed).second) << change.what;
    EXPECT_FALSE(tracks.insert(changed).second) << change.what;
    EXPECT_TRUE(hashes.insert(std::hash<Track>{}(changed)).second) << change.what;
  }
}

TEST(TrackTest, HashTellsSwappedTextsApart) {
  Track swapped = sampleTrack();
  std::swap(swapped.title, swapped.detail);
  EXPECT_NE(std::hash<Track>{}(swapped), std::hash<Track>{}(sampleTrack()));
}

// Without a mark for absence both would hash the same single text.
TEST(TrackTest, HashTellsWhichOptionalTextIsAbsent) {
  Track withoutName = sampleTrack();
  withoutName.resourceName.reset();
  Track withoutExtension = sampleTrack();
  withoutExtension.resourceName = withoutName.fileExtension;
  withoutExtension.fileExtension.reset();
  EXPECT_NE(std::hash<Track>{}(withoutName), std::hash<Track>{}(withoutExtension));
}

TEST(TrackTest, ViewsCanReadTheTitle) {
  const Track track = sampleTrack();
  const QMetaObject& metaObject = Track::staticMetaObject;
  const int title = metaObject.indexOfProperty("title");
  ASSERT_GE(title, 0);
  EXPECT_EQ(metaObject.property(title).readOnGadget(&track).toString(), track.title);
}

}  // namespace
}  // namespace mireval
