#include "measures/Silence.h"

#include <algorithm>
#include <cmath>

namespace mireval::soundtrack {
namespace {

/// -60 and -50 dBFS.
constexpr float silent = 0.001F;
constexpr float quiet = 0.00316228F;
constexpr std::size_t tenthsAtEachEnd = 20;

}  // namespace

Silence Silence::of(const Recording& recording) {
  Silence silence;
  const std::size_t count = recording.left.size();
  const auto peakAt = [&recording](std::size_t i) {
    return std::max(std::abs(recording.left[i]), std::abs(recording.right[i]));
  };
  std::size_t head = 0;
  while (head < count && peakAt(head) <= silent) {
    ++head;
  }
  std::size_t tail = 0;
  while (tail < count && peakAt(count - 1 - tail) <= silent) {
    ++tail;
  }
  silence.head = static_cast<double>(head) / recording.sampleRate;
  silence.tail = static_cast<double>(tail) / recording.sampleRate;

  const auto tenth = static_cast<std::size_t>(recording.sampleRate / 10);
  const std::size_t tenths = count / tenth;
  std::size_t run = 0;
  std::size_t longest = 0;
  for (std::size_t i = tenthsAtEachEnd; i + tenthsAtEachEnd < tenths; ++i) {
    float peak = 0;
    for (std::size_t j = i * tenth; j < (i + 1) * tenth; ++j) {
      peak = std::max(peak, peakAt(j));
    }
    run = peak < quiet ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  silence.longestInside = static_cast<double>(longest) / 10;
  return silence;
}

}  // namespace mireval::soundtrack
