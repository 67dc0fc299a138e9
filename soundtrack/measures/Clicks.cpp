#include "measures/Clicks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>

namespace mireval::soundtrack {
namespace {

/// Only the jumps that stand out most from the 10 ms around them are examined closely.
constexpr std::size_t mostCandidates = 3000;
/// Smaller jumps are not heard.
constexpr double smallestJump = 0.004;
constexpr double nothing = 1e-5;
/// A jump on a slope has large neighbours, so the nearest one on each side is left out.
constexpr std::ptrdiff_t nearest = 2;
constexpr std::ptrdiff_t farthest = 48;

std::vector<double> jumpsOf(const std::vector<float>& samples) {
  std::vector<double> jumps;
  jumps.reserve(samples.size() + 1);
  double before = 0;
  for (const float sample : samples) {
    jumps.push_back(std::abs(sample - before));
    before = sample;
  }
  jumps.push_back(std::abs(before));
  return jumps;
}

/// Each jump divided by the root mean square of the `2 * reach + 1` jumps around it.
std::vector<float> prominences(std::span<const double> jumps, std::size_t reach) {
  std::vector<float> result(jumps.size());
  const auto width = static_cast<double>(2 * reach + 1);
  double sum = 0;
  for (std::size_t i = 0; i < std::min(reach, jumps.size()); ++i) {
    sum += jumps[i] * jumps[i];
  }
  for (std::size_t i = 0; i < jumps.size(); ++i) {
    if (i + reach < jumps.size()) {
      sum += jumps[i + reach] * jumps[i + reach];
    }
    if (i > reach) {
      sum -= jumps[i - reach - 1] * jumps[i - reach - 1];
    }
    result[i] = static_cast<float>(jumps[i] / (std::sqrt(std::max(sum, 0.0) / width) + nothing));
  }
  return result;
}

float leastOfTheLargest(std::vector<float> values, std::size_t count) {
  const auto last = values.begin() + static_cast<std::ptrdiff_t>(std::min(count, values.size()) - 1);
  std::nth_element(values.begin(), last, values.end(), std::greater<>());
  return *last;
}

double largest(std::span<const double> jumps, std::ptrdiff_t from, std::ptrdiff_t to) {
  const auto size = static_cast<std::ptrdiff_t>(jumps.size());
  const auto begin = jumps.begin() + std::clamp<std::ptrdiff_t>(from, 0, size);
  const auto end = jumps.begin() + std::clamp<std::ptrdiff_t>(to, 0, size);
  return begin < end ? *std::max_element(begin, end) : 0;
}

}  // namespace

Clicks Clicks::of(const Recording& recording) {
  Clicks clicks;
  const auto reach = static_cast<std::size_t>(recording.sampleRate / 200);
  for (const std::vector<float>* channel : {&recording.left, &recording.right}) {
    const std::vector<double> jumps = jumpsOf(*channel);
    const std::vector<float> prominence = prominences(jumps, reach);
    const float least = leastOfTheLargest(prominence, mostCandidates);
    for (std::size_t i = 0; i < jumps.size(); ++i) {
      if (prominence[i] < least || jumps[i] < smallestJump) {
        continue;
      }
      const auto at = static_cast<std::ptrdiff_t>(i);
      const double near = std::max(largest(jumps, at - farthest, at - nearest + 1),
                                   largest(jumps, at + nearest, at + farthest + 1));
      const double ratio = jumps[i] / (near + nothing);
      if (ratio > clicks.worstRatio) {
        clicks.worstRatio = ratio;
        clicks.worstAtSeconds = static_cast<double>(i) / recording.sampleRate;
      }
    }
  }
  return clicks;
}

}  // namespace mireval::soundtrack
