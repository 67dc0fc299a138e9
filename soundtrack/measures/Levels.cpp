#include "measures/Levels.h"

#include <algorithm>
#include <cmath>

namespace mireval::soundtrack {
namespace {

constexpr float fullScale = 0.9999F;
/// Keeps the balance finite when a channel is silent.
constexpr double silence = 1e-12;

}  // namespace

Levels Levels::of(const Recording& recording) {
  Levels levels;
  double sumLeft = 0;
  double sumRight = 0;
  double energyLeft = 0;
  double energyRight = 0;
  double product = 0;
  for (std::size_t i = 0; i < recording.left.size(); ++i) {
    const double left = recording.left[i];
    const double right = recording.right[i];
    levels.clippedSamples += std::abs(recording.left[i]) >= fullScale ? 1 : 0;
    levels.clippedSamples += std::abs(recording.right[i]) >= fullScale ? 1 : 0;
    sumLeft += left;
    sumRight += right;
    energyLeft += left * left;
    energyRight += right * right;
    product += left * right;
  }
  const auto count = static_cast<double>(std::max<std::size_t>(recording.left.size(), 1));
  const double meanLeft = sumLeft / count;
  const double meanRight = sumRight / count;
  levels.dcOffset = std::max(std::abs(meanLeft), std::abs(meanRight));
  const double variances =
      (energyLeft / count - meanLeft * meanLeft) * (energyRight / count - meanRight * meanRight);
  if (variances > silence * silence) {
    levels.correlation = (product / count - meanLeft * meanRight) / std::sqrt(variances);
  }
  levels.balanceDb = 10 * std::log10((energyLeft / count + silence) / (energyRight / count + silence));
  return levels;
}

}  // namespace mireval::soundtrack
