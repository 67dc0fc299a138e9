#include "measures/MelBank.h"

#include <algorithm>
#include <cmath>

namespace mireval::soundtrack {
namespace {

double melOf(double hertz) {
  return 2595 * std::log10(1 + hertz / 700);
}

double hertzOf(double mel) {
  return 700 * (std::pow(10, mel / 2595) - 1);
}

}  // namespace

MelBank::MelBank(std::size_t bands, std::size_t size, int sampleRate, double lowestHz, double highestHz)
    : m_bands(bands) {
  const double hertzPerBin = static_cast<double>(sampleRate) / static_cast<double>(size);
  const double lowest = melOf(lowestHz);
  const double step = (melOf(highestHz) - lowest) / static_cast<double>(bands + 1);
  for (std::size_t i = 0; i < bands; ++i) {
    const double from = hertzOf(lowest + step * static_cast<double>(i));
    const double centre = hertzOf(lowest + step * static_cast<double>(i + 1));
    const double to = hertzOf(lowest + step * static_cast<double>(i + 2));
    Band& band = m_bands[i];
    band.firstBin = static_cast<std::size_t>(from / hertzPerBin) + 1;
    const std::size_t end = std::min(static_cast<std::size_t>(to / hertzPerBin), size / 2) + 1;
    for (std::size_t bin = band.firstBin; bin < end; ++bin) {
      const double hertz = hertzPerBin * static_cast<double>(bin);
      const double weight = std::min((hertz - from) / (centre - from), (to - hertz) / (to - centre));
      band.weights.push_back(static_cast<float>(std::max(weight, 0.0)));
    }
  }
}

void MelBank::apply(std::span<const float> power, double floor, std::span<double> decibels) const {
  for (std::size_t i = 0; i < m_bands.size(); ++i) {
    const Band& band = m_bands[i];
    double sum = floor;
    for (std::size_t j = 0; j < band.weights.size(); ++j) {
      sum += static_cast<double>(band.weights[j]) * power[band.firstBin + j];
    }
    decibels[i] = 10 * std::log10(sum);
  }
}

}  // namespace mireval::soundtrack
