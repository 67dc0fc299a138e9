#include "library/Shuffle.h"

#include <gtest/gtest.h>

#include <QRandomGenerator64>

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mireval {
namespace {

/// Yields the given words, then fails.
class Words {
 public:
  explicit Words(std::vector<std::uint64_t> words) : m_words(std::move(words)) {}

  std::uint64_t operator()() { return m_words.at(m_drawn++); }
  std::size_t drawn() const { return m_drawn; }

 private:
  std::vector<std::uint64_t> m_words;
  std::size_t m_drawn = 0;
};

constexpr std::uint64_t twoTo63 = std::uint64_t{1} << 63U;
constexpr std::uint64_t largestWord = ~std::uint64_t{0};

TEST(UniformBelowTest, TakesTheUpperHalfOfTheProduct) {
  // With bound 10, the words below 2^64/10 = 1844674407370955161.6 give 0, the next tenth 1, and so on
  // (the very first word of a tenth may be drawn again).
  const std::vector<std::pair<std::uint64_t, std::uint64_t>> drawOfWord{
      {1844674407370955161U, 0}, {1844674407370955163U, 1}, {twoTo63 - 1, 4},
      {twoTo63 + 1, 5},          {largestWord, 9},
  };
  for (const auto& [word, draw] : drawOfWord) {
    Words words({word});
    EXPECT_EQ(uniformBelow(10, words), draw) << word;
    EXPECT_EQ(words.drawn(), 1U);
  }
}

TEST(UniformBelowTest, BoundOneAlwaysGivesZero) {
  for (const std::uint64_t word : {std::uint64_t{0}, twoTo63, largestWord}) {
    Words words({word});
    EXPECT_EQ(uniformBelow(1, words), 0U);
    EXPECT_EQ(words.drawn(), 1U);
  }
}

TEST(UniformBelowTest, PowerOfTwoRejectsNothing) {
  // (2^64 - 4) mod 4 = 0: no lower half is below it, not even that of the word 0.
  Words words({0, twoTo63});
  EXPECT_EQ(uniformBelow(4, words), 0U);
  EXPECT_EQ(words.drawn(), 1U);
  EXPECT_EQ(uniformBelow(4, words), 2U);
}

TEST(UniformBelowTest, DrawsAgainBelowTheThreshold) {
  // (2^64 - 3) mod 3 = 1, because 2^64 mod 3 = 1. The word 0 has the lower half 0 < 1 and is drawn again;
  // the word 1 has the lower half 3 and gives 0.
  Words zeroThenOne({0, 0, 1});
  EXPECT_EQ(uniformBelow(3, zeroThenOne), 0U);
  EXPECT_EQ(zeroThenOne.drawn(), 3U);

  // (2^64 - k) mod k for k = 2^63 + 1 is 2^63 - 1. The word 2 makes 2 * k = 2^64 + 2: lower half
  // 2 < 2^63 - 1, drawn again. The word 3 makes 3 * k = 2^64 + 2^63 + 3: lower half 2^63 + 3, gives 1.
  Words twoThenThree({2, 3});
  EXPECT_EQ(uniformBelow(twoTo63 + 1, twoThenThree), 1U);
  EXPECT_EQ(twoThenThree.drawn(), 2U);
}

TEST(UniformBelowTest, AcceptsExactlyFromTheThresholdOn) {
  // k = 2^63 + 1 again, threshold 2^63 - 1. An even word w has the lower half w, an odd one w + 2^63.
  // w = 2^63 - 2: one below the threshold. w = 2^64 - 1: 2^63 - 1, the threshold itself; the upper half is
  // then floor((2^64 - 1) * (2^63 + 1) / 2^64) = 2^63.
  Words words({twoTo63 - 2, largestWord});
  EXPECT_EQ(uniformBelow(twoTo63 + 1, words), twoTo63);
  EXPECT_EQ(words.drawn(), 2U);
}

TEST(ShuffleTest, DrawsNothingForFewerThanTwoElements) {
  Words none({});
  std::vector<std::string> list;
  shuffle(list, none);
  EXPECT_TRUE(list.empty());
  list = {"a"};
  shuffle(list, none);
  EXPECT_EQ(list, std::vector<std::string>{"a"});
  EXPECT_EQ(none.drawn(), 0U);
}

TEST(ShuffleTest, WalksFromTheFront) {
  // Offsets 3 (below 5), 0 (below 4), 2 (below 3), 1 (below 2); each word lies well inside the stretch of
  // 2^64/bound words that gives its offset.
  Words words({
      0xA000000000000000U,  // 5/8: 3/5 <= 5/8 < 4/5
      0x1000000000000000U,  // 1/16 < 1/4
      0xB000000000000000U,  // 11/16: 2/3 <= 11/16
      0x9000000000000000U,  // 9/16: 1/2 <= 9/16
  });
  std::vector<std::string> list{"a", "b", "c", "d", "e"};
  shuffle(list, words);
  // a b c d e -> d b c a e -> unchanged -> d b e a c -> d b e c a
  EXPECT_EQ(list, (std::vector<std::string>{"d", "b", "e", "c", "a"}));
  EXPECT_EQ(words.drawn(), 4U);
}

TEST(ShuffleTest, OffsetZeroEverywhereKeepsTheOrder) {
  Words words({1, 1, 1});
  std::vector<std::string> list{"a", "b", "c", "d"};
  shuffle(list, words);
  EXPECT_EQ(list, (std::vector<std::string>{"a", "b", "c", "d"}));
  EXPECT_EQ(words.drawn(), 3U);
}

TEST(ShuffleTest, DrawsAgainInsideTheWalk) {
  // Bound 3 rejects the word 0; bound 2 then takes a word of its upper half.
  Words words({0, 1, twoTo63});
  std::vector<std::string> list{"a", "b", "c"};
  shuffle(list, words);
  EXPECT_EQ(list, (std::vector<std::string>{"a", "c", "b"}));
  EXPECT_EQ(words.drawn(), 3U);
}

// For each order, X is how often it comes in n shuffles; n p is expected. Hoeffding's inequality bounds the
// chance of a false alarm without any approximation: P(|X - n p| >= t) <= 2 exp(-2 t^2 / n). With
// n = 60000 and t = 900: 2 t^2 / n = 27, so 2 * e^-27 < 4e-12 for one order and < 3e-11 for all six. A walk
// that draws each offset below 3 favours some orders with 5/27 over 4/27: off by 1111, seen.
TEST(ShuffleTest, EveryOrderOfThreeIsEquallyLikely) {
  constexpr int shuffles = 60000;
  constexpr int tolerance = 900;
  std::map<std::string, int> seen;
  for (int i = 0; i < shuffles; ++i) {
    std::string list = "abc";
    shuffle(list, [] { return QRandomGenerator64::system()->generate(); });
    ++seen[list];
  }
  for (const char* const order : {"abc", "acb", "bac", "bca", "cab", "cba"}) {
    EXPECT_NEAR(seen[order], shuffles / 6.0, tolerance) << order;
  }
  EXPECT_EQ(seen.size(), 6U);
}

// As above with p = 1/2: n = 20000 and t = 600 give 2 t^2 / n = 36 and a false alarm below 1e-15.
TEST(ShuffleTest, BothOrdersOfTwoAreEquallyLikely) {
  constexpr int shuffles = 20000;
  int swapped = 0;
  for (int i = 0; i < shuffles; ++i) {
    std::array<int, 2> list{1, 2};
    shuffle(list, [] { return QRandomGenerator64::system()->generate(); });
    swapped += list == std::array<int, 2>{2, 1} ? 1 : 0;
  }
  EXPECT_NEAR(swapped, shuffles / 2.0, 600);
}

}  // namespace
}  // namespace mireval
