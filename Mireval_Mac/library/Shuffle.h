#pragma once

#include <concepts>
#include <cstdint>
#include <iterator>
#include <limits>
#include <ranges>
#include <utility>

namespace mireval {

/// Something that yields independent, uniformly distributed 64-bit words.
template <typename Source>
concept RandomWordSource = requires(Source& source) {
  { source() } -> std::convertible_to<std::uint64_t>;
};

/// A uniform draw from 0 to `bound` - 1, without modulo bias; `bound` must not be 0. Multiplies a random
/// word by the bound and takes the upper half of the product; words whose lower half falls below
/// (2^64 - bound) mod bound are drawn again (D. Lemire, "Fast Random Integer Generation in an Interval",
/// ACM TOMACS 29(1), 2019).
template <RandomWordSource Source>
std::uint64_t uniformBelow(std::uint64_t bound, Source& randomWord) {
  __extension__ using Product = unsigned __int128;
  const std::uint64_t rejected = (std::numeric_limits<std::uint64_t>::max() - bound + 1) % bound;
  while (true) {
    const Product product = static_cast<Product>(static_cast<std::uint64_t>(randomWord())) * bound;
    if (static_cast<std::uint64_t>(product) >= rejected) {
      return static_cast<std::uint64_t>(product >> 64U);
    }
  }
}

/// Puts the elements in a uniformly random order (Fisher-Yates, from the front). Draws no word for fewer
/// than two elements.
template <std::ranges::random_access_range Range, RandomWordSource Source>
void shuffle(Range&& range, Source&& randomWord) {
  const auto first = std::ranges::begin(range);
  const auto count = static_cast<std::uint64_t>(std::ranges::distance(range));
  for (std::uint64_t i = 0; i + 1 < count; ++i) {
    const std::uint64_t offset = uniformBelow(count - i, randomWord);
    if (offset != 0) {
      using Distance = std::ranges::range_difference_t<Range>;
      const auto place = static_cast<Distance>(i);
      std::swap(first[place], first[place + static_cast<Distance>(offset)]);
    }
  }
}

}  // namespace mireval
