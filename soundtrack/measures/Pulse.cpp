#include "measures/Pulse.h"

#include "measures/MelBank.h"
#include "measures/PowerSpectra.h"

#include <algorithm>
#include <span>

namespace mireval::soundtrack {
namespace {

constexpr std::size_t frameSize = 1024;
constexpr std::size_t framesPerSecond = 100;
constexpr std::size_t bandCount = 24;
constexpr double lowestHz = 40;
constexpr double highestHz = 12000;
constexpr double floorPower = 1e-2;
constexpr double tolerance = 0.015;

std::vector<double> risesOf(const Recording& recording) {
  const auto hop = static_cast<std::size_t>(recording.sampleRate) / framesPerSecond;
  const PowerSpectra spectra(recording.normalisedMono(), frameSize, hop);
  const MelBank bank(bandCount, frameSize, recording.sampleRate, lowestHz, highestHz);
  std::vector<double> before(bandCount);
  std::vector<double> now(bandCount);
  std::vector<double> rises;
  for (std::size_t i = 0; i < spectra.frameCount(); ++i) {
    bank.apply(spectra.frame(i), floorPower, now);
    if (i > 0) {
      double rise = 0;
      for (std::size_t band = 0; band < bandCount; ++band) {
        rise += std::max(now[band] - before[band], 0.0);
      }
      rises.push_back(rise / static_cast<double>(bandCount));
    }
    now.swap(before);
  }
  return rises;
}

/// Silence is assumed before the start and after the end.
std::vector<double> withoutMeanOfASecond(std::span<const double> values) {
  constexpr std::size_t half = framesPerSecond / 2;
  std::vector<double> sums{0};
  for (const double value : values) {
    sums.push_back(sums.back() + value);
  }
  std::vector<double> result;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t from = i < half ? 0 : i - half;
    const std::size_t to = std::min(i + half, values.size());
    result.push_back(values[i] - (sums[to] - sums[from]) / static_cast<double>(framesPerSecond));
  }
  return result;
}

}  // namespace

Pulse::Pulse(const Recording& recording) : m_onsets(withoutMeanOfASecond(risesOf(recording))) {}

double Pulse::autocorrelation(std::size_t lag) const {
  double sum = 0;
  for (std::size_t i = lag; i < m_onsets.size(); ++i) {
    sum += m_onsets[i] * m_onsets[i - lag];
  }
  return sum;
}

double Pulse::atPeriod(double seconds) const {
  const double energy = autocorrelation(0);
  if (energy <= 0) {
    return 0;
  }
  const double period = seconds * static_cast<double>(framesPerSecond);
  const auto shortest = std::max<std::size_t>(1, static_cast<std::size_t>(period * (1 - tolerance)));
  const auto longest = static_cast<std::size_t>(period * (1 + tolerance)) + 1;
  double best = -1;
  for (std::size_t lag = shortest; lag <= longest; ++lag) {
    best = std::max(best, autocorrelation(lag) / energy);
  }
  return best;
}

}  // namespace mireval::soundtrack
