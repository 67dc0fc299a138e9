#include "measures/Chroma.h"

#include "measures/PowerSpectra.h"

#include <algorithm>
#include <cmath>

namespace mireval::soundtrack {
namespace {

constexpr std::size_t frameSize = 16384;
constexpr std::size_t frameHop = 16301;
constexpr double lowestHz = 55;
constexpr double highestHz = 2000;
constexpr float standsOut = 10;
constexpr std::size_t neighbours = 15;
/// The median is computed once for this many bins.
constexpr std::size_t floorStep = 8;
constexpr double nothing = 1e-9;

float medianAround(std::span<const float> power, std::size_t bin) {
  const std::size_t from = bin < neighbours ? 0 : bin - neighbours;
  const std::size_t to = std::min(bin + neighbours + 1, power.size());
  std::array<float, 2 * neighbours + 1> sorted{};
  const auto end = std::copy(power.begin() + static_cast<std::ptrdiff_t>(from),
                             power.begin() + static_cast<std::ptrdiff_t>(to), sorted.begin());
  std::sort(sorted.begin(), end);
  const std::size_t count = to - from;
  return (sorted.at((count - 1) / 2) + sorted.at(count / 2)) / 2;
}

std::size_t pitchClassOf(double hertz) {
  return static_cast<std::size_t>(std::lround(69 + 12 * std::log2(hertz / 440))) % 12;
}

}  // namespace

Chroma Chroma::of(std::span<const float> mono, int sampleRate) {
  const double hertzPerBin = static_cast<double>(sampleRate) / static_cast<double>(frameSize);
  const auto first = static_cast<std::size_t>(lowestHz / hertzPerBin) + 1;
  std::vector<std::size_t> pitchClasses;
  for (std::size_t bin = first; hertzPerBin * static_cast<double>(bin) < highestHz; ++bin) {
    pitchClasses.push_back(pitchClassOf(hertzPerBin * static_cast<double>(bin)));
  }

  const PowerSpectra spectra(mono, frameSize, frameHop);
  Chroma chroma;
  chroma.secondsPerFrame = static_cast<double>(frameHop) / sampleRate;
  double tones = 0;
  double all = 0;
  for (std::size_t i = 0; i < spectra.frameCount(); ++i) {
    const std::span<const float> power = spectra.frame(i).subspan(first, pitchClasses.size());
    Frame& frame = chroma.frames.emplace_back();
    double sum = nothing;
    float floor = 0;
    for (std::size_t bin = 0; bin < power.size(); ++bin) {
      if (bin % floorStep == 0) {
        floor = medianAround(power, bin);
      }
      all += power[bin];
      if (power[bin] > standsOut * floor) {
        tones += power[bin];
        const double amplitude = std::sqrt(power[bin]);
        frame.at(pitchClasses[bin]) += amplitude;
        sum += amplitude;
      }
    }
    for (double& share : frame) {
      share /= sum;
    }
  }
  chroma.tonalShare = all > 0 ? tones / all : 0;
  return chroma;
}

double difference(const Chroma::Frame& a, const Chroma::Frame& b, std::size_t semitones) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    sum += std::abs(a.at((i + semitones) % a.size()) - b.at(i));
  }
  return sum / 2;
}

}  // namespace mireval::soundtrack
