#include "library/TrackAvailability.h"

#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

namespace mireval {
namespace {

TEST(TrackAvailabilityTest, IncludedHasNoSlot) {
  EXPECT_EQ(TrackAvailability::included().slot(), std::nullopt);
  EXPECT_EQ(TrackAvailability::included(), TrackAvailability::included());
}

TEST(TrackAvailabilityTest, UpcomingCloudKeepsItsSlot) {
  for (const std::int64_t slot :
       {std::int64_t{0}, std::int64_t{7}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(TrackAvailability::upcomingCloud(slot).slot(), slot);
  }
}

TEST(TrackAvailabilityTest, EqualityComparesCaseAndSlot) {
  EXPECT_EQ(TrackAvailability::upcomingCloud(3), TrackAvailability::upcomingCloud(3));
  EXPECT_NE(TrackAvailability::upcomingCloud(3), TrackAvailability::upcomingCloud(4));
  EXPECT_NE(TrackAvailability::upcomingCloud(0), TrackAvailability::included());
}

TEST(TrackAvailabilityTest, HashFollowsCaseAndSlot) {
  const std::unordered_set<TrackAvailability> set{
      TrackAvailability::included(),       TrackAvailability::included(),
      TrackAvailability::upcomingCloud(0), TrackAvailability::upcomingCloud(0),
      TrackAvailability::upcomingCloud(1),
  };
  EXPECT_EQ(set.size(), 3U);
  const std::hash<TrackAvailability> hash;
  EXPECT_EQ(hash(TrackAvailability::upcomingCloud(5)), hash(TrackAvailability::upcomingCloud(5)));
  EXPECT_NE(hash(TrackAvailability::upcomingCloud(0)), hash(TrackAvailability::included()));
  EXPECT_NE(hash(TrackAvailability::upcomingCloud(0)), hash(TrackAvailability::upcomingCloud(1)));
}

}  // namespace
}  // namespace mireval
