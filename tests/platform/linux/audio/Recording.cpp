#include "Recording.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mireval::test {
namespace {

constexpr float audible = 1e-4F;

bool frameSounds(std::span<const float> frame) {
  return std::ranges::any_of(frame, [](float sample) { return std::abs(sample) > audible; });
}

}  // namespace

Recording Recording::part(double start, double length) const {
  const auto first = std::min(static_cast<std::size_t>(std::max(start, 0.0) * sampleRate), frames());
  const auto count = std::min(static_cast<std::size_t>(length * sampleRate), frames() - first);
  const auto from = samples.begin() + static_cast<std::ptrdiff_t>(first * 2);
  return {{from, from + static_cast<std::ptrdiff_t>(count * 2)}};
}

Recording Recording::trimmed() const {
  const std::span<const float> all(samples);
  std::size_t first = 0;
  while (first < frames() && !frameSounds(all.subspan(first * 2, 2))) {
    ++first;
  }
  std::size_t last = frames();
  while (last > first && !frameSounds(all.subspan((last - 1) * 2, 2))) {
    --last;
  }
  return {{samples.begin() + static_cast<std::ptrdiff_t>(first * 2),
           samples.begin() + static_cast<std::ptrdiff_t>(last * 2)}};
}

std::vector<float> Recording::channel(int index) const {
  std::vector<float> side(frames());
  for (std::size_t i = 0; i < side.size(); ++i) {
    side[i] = samples[i * 2 + static_cast<std::size_t>(index)];
  }
  return side;
}

double Recording::levelDb(int index) const {
  double energy = 0;
  for (const float sample : channel(index)) {
    energy += static_cast<double>(sample) * sample;
  }
  return energy == 0 || frames() == 0 ? -200 : 10 * std::log10(energy / static_cast<double>(frames()));
}

double Recording::peak() const {
  double highest = 0;
  for (const float sample : samples) {
    highest = std::max(highest, std::abs(static_cast<double>(sample)));
  }
  return highest;
}

double Recording::shareOfTone(double frequency, int index) const {
  double sine = 0;
  double cosine = 0;
  double energy = 0;
  const std::vector<float> side = channel(index);
  for (std::size_t i = 0; i < side.size(); ++i) {
    const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(i) / sampleRate;
    sine += side[i] * std::sin(angle);
    cosine += side[i] * std::cos(angle);
    energy += static_cast<double>(side[i]) * side[i];
  }
  return energy == 0 ? 0 : 2 * (sine * sine + cosine * cosine) / static_cast<double>(side.size()) / energy;
}

double Recording::longestSilence() const {
  const Recording sound = trimmed();
  const std::span<const float> all(sound.samples);
  std::size_t run = 0;
  std::size_t longest = 0;
  for (std::size_t i = 0; i < sound.frames(); ++i) {
    run = frameSounds(all.subspan(i * 2, 2)) ? 0 : run + 1;
    longest = std::max(longest, run);
  }
  return static_cast<double>(longest) / sampleRate;
}

}  // namespace mireval::test
