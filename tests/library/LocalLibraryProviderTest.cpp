#include "library/LocalLibraryProvider.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <barrier>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

std::set<QUuid> idsOf(const QList<Track>& tracks) {
  std::set<QUuid> ids;
  for (const Track& track : tracks) {
    ids.insert(track.id);
  }
  return ids;
}

int numberOf(const Track& track) {
  return track.resourceName.value_or(QString()).section(u'-', -1).toInt();
}

std::uint64_t noWord() {
  ADD_FAILURE() << "no random word was needed";
  return 0;
}

TEST(LocalLibraryProviderTest, ListsWhatItPlaysEveryTime) {
  const LocalLibraryProvider provider;
  for (const Mood mood : allMoods) {
    const QList<Track> tracks = provider.playableTracks(mood);
    EXPECT_EQ(provider.displayEntries(mood), tracks);
    EXPECT_EQ(provider.playableTracks(mood), tracks);
  }
}

// Compares with the catalogue, whose content CatalogueTest checks.
TEST(LocalLibraryProviderTest, ShufflesWithoutTouchingTheTracks) {
  const LocalLibraryProvider provider;
  for (const Mood mood : allMoods) {
    QList<Track> tracks = provider.playableTracks(mood);
    std::ranges::sort(tracks, {}, numberOf);
    EXPECT_EQ(tracks, catalogue().at(mood)) << rawValue(mood).toStdString();
  }
}

// Two providers agree in all four orders with a chance of 16!^-4 < 1e-53.
TEST(LocalLibraryProviderTest, ProvidersShareTheTracksButNotTheOrder) {
  const LocalLibraryProvider one;
  const LocalLibraryProvider other;
  bool sameOrders = true;
  for (const Mood mood : allMoods) {
    EXPECT_EQ(idsOf(one.playableTracks(mood)), idsOf(other.playableTracks(mood)));
    sameOrders = sameOrders && one.playableTracks(mood) == other.playableTracks(mood);
  }
  EXPECT_FALSE(sameOrders);
}

// The moods are shuffled one by one: the same permutation four times comes with a chance of 16!^-3 < 1e-39.
TEST(LocalLibraryProviderTest, MoodsAreShuffledIndependently) {
  const LocalLibraryProvider provider;
  std::set<std::vector<int>> orders;
  for (const Mood mood : allMoods) {
    std::vector<int> order;
    for (const Track& track : provider.playableTracks(mood)) {
      order.push_back(numberOf(track));
    }
    orders.insert(order);
  }
  EXPECT_GT(orders.size(), 1U);
}

TEST(LocalLibraryProviderTest, DrawsFromTheGivenSource) {
  constexpr std::array titles{"A"_L1, "B"_L1, "C"_L1};
  const Catalogue tracks{{Mood::focus, makeTracks(titles, titles, Mood::focus)}};
  // 15/16 of the way through the words: offset 2 below 3, then offset 1 below 2.
  int drawn = 0;
  const LocalLibraryProvider provider(tracks, [&drawn]() -> std::uint64_t {
    ++drawn;
    return 0xF000000000000000U;
  });
  EXPECT_EQ(drawn, 2);
  const QList<Track>& original = tracks.at(Mood::focus);
  // A B C -> C B A -> C A B
  EXPECT_EQ(provider.playableTracks(Mood::focus),
            (QList<Track>{original.at(2), original.at(0), original.at(1)}));
}

TEST(LocalLibraryProviderTest, OneTrackIsLeftAlone) {
  constexpr std::array title{"Only"_L1};
  const Catalogue tracks{{Mood::tempo, makeTracks(title, title, Mood::tempo)}, {Mood::creative, {}}};
  const LocalLibraryProvider provider(tracks, noWord);
  EXPECT_EQ(provider.playableTracks(Mood::tempo), tracks.at(Mood::tempo));
  EXPECT_EQ(provider.displayEntries(Mood::tempo), tracks.at(Mood::tempo));
  EXPECT_TRUE(provider.playableTracks(Mood::creative).isEmpty());
}

TEST(LocalLibraryProviderTest, MoodWithoutEntryHasNoTracks) {
  const LocalLibraryProvider provider(Catalogue(), noWord);
  for (const Mood mood : allMoods) {
    EXPECT_TRUE(provider.playableTracks(mood).isEmpty());
    EXPECT_TRUE(provider.displayEntries(mood).isEmpty());
  }
}

// The catalogue is first used here when the test runs alone in its process, as under CTest.
TEST(LocalLibraryProviderTest, CatalogueIsBuiltOnceByConcurrentProviders) {
  constexpr std::size_t threadCount = 8;
  std::array<std::unique_ptr<LocalLibraryProvider>, threadCount> providers;
  {
    std::barrier start(static_cast<std::ptrdiff_t>(threadCount));
    std::vector<std::jthread> threads;
    threads.reserve(threadCount);
    for (auto& provider : providers) {
      threads.emplace_back([&provider, &start] {
        start.arrive_and_wait();
        provider = std::make_unique<LocalLibraryProvider>();
      });
    }
  }
  for (const auto& provider : providers) {
    for (const Mood mood : allMoods) {
      EXPECT_EQ(idsOf(provider->playableTracks(mood)), idsOf(catalogue().at(mood)));
    }
  }
}

}  // namespace
}  // namespace mireval
