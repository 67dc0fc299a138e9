#include "measures/Fingerprint.h"

#include "measures/MelBank.h"
#include "measures/PowerSpectra.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <tuple>
#include <vector>

namespace mireval::soundtrack {
namespace {

constexpr std::size_t frameSize = 4096;
constexpr std::size_t frameHop = 2048;
constexpr double lowestHz = 40;
constexpr double highestHz = 12000;
constexpr double floorPower = 1;
constexpr double chromaWeight = 20;
/// Of `Chroma`: four seconds at 44.1 kHz.
constexpr std::size_t framesPerStep = 11;

/// One of `parts` parts of nearly equal length; the first ones are the longer ones.
template <typename Frame>
std::span<const Frame> partOf(std::span<const Frame> frames, std::size_t parts, std::size_t index) {
  const std::size_t length = frames.size() / parts;
  const std::size_t longer = frames.size() % parts;
  return frames.subspan(index * length + std::min(index, longer), length + (index < longer ? 1 : 0));
}

std::vector<Fingerprint::Bands> bandsOf(std::span<const float> mono, int sampleRate) {
  const PowerSpectra spectra(mono, frameSize, frameHop);
  const MelBank bank(Fingerprint::bandCount, frameSize, sampleRate, lowestHz, highestHz);
  std::vector<Fingerprint::Bands> frames(spectra.frameCount());
  for (std::size_t i = 0; i < frames.size(); ++i) {
    bank.apply(spectra.frame(i), floorPower, frames[i]);
  }
  return frames;
}

template <std::size_t length>
std::array<double, length> meanOf(std::span<const std::array<double, length>> frames) {
  std::array<double, length> mean{};
  for (const std::array<double, length>& frame : frames) {
    for (std::size_t i = 0; i < length; ++i) {
      mean.at(i) += frame.at(i) / static_cast<double>(frames.size());
    }
  }
  return mean;
}

template <typename Frame>
std::array<Frame, Fingerprint::partCount> meansOfParts(std::span<const Frame> frames) {
  std::array<Frame, Fingerprint::partCount> means{};
  for (std::size_t i = 0; i < means.size(); ++i) {
    means.at(i) = meanOf(partOf(frames, means.size(), i));
  }
  return means;
}

double meanSquareDifference(const Fingerprint::Bands& a, const Fingerprint::Bands& b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    sum += (a.at(i) - b.at(i)) * (a.at(i) - b.at(i));
  }
  return sum / static_cast<double>(a.size());
}

double movementOf(std::span<const Chroma::Frame> frames) {
  const std::size_t steps = std::max<std::size_t>(2, frames.size() / framesPerStep);
  double sum = 0;
  for (std::size_t i = 1; i < steps; ++i) {
    sum += difference(meanOf(partOf(frames, steps, i)), meanOf(partOf(frames, steps, i - 1)));
  }
  return sum / static_cast<double>(steps - 1);
}

}  // namespace

Fingerprint Fingerprint::of(const Recording& recording) {
  const std::vector<float> mono = recording.normalisedMono();
  const std::vector<Bands> bands = bandsOf(mono, recording.sampleRate);
  const Chroma chroma = Chroma::of(mono, recording.sampleRate);
  Fingerprint print;
  print.meanBands = meanOf<bandCount>(bands);
  print.bandsOfParts = meansOfParts<Bands>(bands);
  print.chromaOfParts = meansOfParts<Chroma::Frame>(chroma.frames);
  print.tonalShare = chroma.tonalShare;
  print.harmonicMovement = movementOf(chroma.frames);
  const Bands meanOfParts = meanOf<bandCount>(print.bandsOfParts);
  double sum = 0;
  for (const Bands& part : print.bandsOfParts) {
    sum += meanSquareDifference(part, meanOfParts);
  }
  print.form = std::sqrt(sum / static_cast<double>(partCount));
  return print;
}

double distance(const Fingerprint& a, const Fingerprint& b) {
  double leastChroma = std::numeric_limits<double>::infinity();
  for (std::size_t semitones = 0; semitones < std::tuple_size_v<Chroma::Frame>; ++semitones) {
    double sum = 0;
    for (std::size_t i = 0; i < Fingerprint::partCount; ++i) {
      sum += difference(a.chromaOfParts.at(i), b.chromaOfParts.at(i), semitones);
    }
    leastChroma = std::min(leastChroma, sum / static_cast<double>(Fingerprint::partCount));
  }
  return std::sqrt(meanSquareDifference(a.meanBands, b.meanBands)) + chromaWeight * leastChroma;
}

}  // namespace mireval::soundtrack
