#include "measures/Loudness.h"

#include <ebur128.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

namespace mireval::soundtrack {
namespace {

constexpr unsigned int channelCount = 2;
constexpr std::size_t secondsOfShortTerm = 3;

struct DestroyMeter {
  void operator()(ebur128_state* meter) const { ebur128_destroy(&meter); }
};

}  // namespace

Loudness Loudness::of(const Recording& recording) {
  Loudness loudness;
  const std::unique_ptr<ebur128_state, DestroyMeter> meter(
      ebur128_init(channelCount, static_cast<unsigned long>(recording.sampleRate),
                   EBUR128_MODE_I | EBUR128_MODE_LRA | EBUR128_MODE_TRUE_PEAK));
  const auto second = static_cast<std::size_t>(recording.sampleRate);
  std::vector<float> block(channelCount * second);
  for (std::size_t start = 0; start < recording.left.size(); start += second) {
    const std::size_t count = std::min(second, recording.left.size() - start);
    for (std::size_t i = 0; i < count; ++i) {
      block[channelCount * i] = recording.left[start + i];
      block[channelCount * i + 1] = recording.right[start + i];
    }
    ebur128_add_frames_float(meter.get(), block.data(), count);
    if (count == second && start >= (secondsOfShortTerm - 1) * second) {
      ebur128_loudness_shortterm(meter.get(), &loudness.shortTerm.emplace_back());
    }
  }
  ebur128_loudness_global(meter.get(), &loudness.integrated);
  ebur128_loudness_range(meter.get(), &loudness.range);
  double peak = 0;
  for (unsigned int channel = 0; channel < channelCount; ++channel) {
    double peakOfChannel = 0;
    ebur128_true_peak(meter.get(), channel, &peakOfChannel);
    peak = std::max(peak, peakOfChannel);
  }
  loudness.truePeak = 20 * std::log10(peak);
  return loudness;
}

}  // namespace mireval::soundtrack
