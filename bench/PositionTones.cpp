#include "PositionTones.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>
#include <sstream>

namespace mireval::bench {
namespace {

constexpr double leftHertz = 440;
constexpr double rightHertz = 445;
constexpr double amplitude = 0.25;
constexpr double leftPeriod = test::Recording::sampleRate / leftHertz;
/// In frames: after these both tones are again as they were.
constexpr double unambiguous = test::Recording::sampleRate / (rightHertz - leftHertz);
constexpr std::size_t blockFrames = 441;
constexpr double fullTurn = 2 * std::numbers::pi;

/// Ten milliseconds that hold both tones.
struct Block {
  /// The block's first frame in the recording.
  std::size_t start;
  /// The position in the track minus the position in the recording, in frames, up to a tenth of a second.
  double offset;

  std::size_t end() const { return start + blockFrames; }
};

/// The phase of a tone at the first frame of some stereo frames, by least squares. Nothing if they hold more
/// than the tone, or less of it.
std::optional<double> phaseOf(double hertz, std::span<const float> frames, std::size_t channel) {
  double sinSin = 0;
  double sinCos = 0;
  double cosCos = 0;
  double sinValue = 0;
  double cosValue = 0;
  double energy = 0;
  for (std::size_t i = 0; i < frames.size() / 2; ++i) {
    const double angle = fullTurn * hertz * static_cast<double>(i) / test::Recording::sampleRate;
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    const double value = frames[2 * i + channel];
    sinSin += sine * sine;
    sinCos += sine * cosine;
    cosCos += cosine * cosine;
    sinValue += sine * value;
    cosValue += cosine * value;
    energy += value * value;
  }
  const double determinant = sinSin * cosCos - sinCos * sinCos;
  const double sinPart = (sinValue * cosCos - cosValue * sinCos) / determinant;
  const double cosPart = (cosValue * sinSin - sinValue * sinCos) / determinant;
  const double rest = energy - sinPart * sinValue - cosPart * cosValue;
  constexpr double largestRest = 0.003;
  if (std::hypot(sinPart, cosPart) < amplitude / 2 || rest > largestRest * energy) {
    return std::nullopt;
  }
  return std::atan2(cosPart, sinPart);
}

/// The difference of two positions that are known up to a tenth of a second.
double wrapped(double frames) {
  return std::remainder(frames, unambiguous);
}

std::optional<Block> blockAt(std::size_t start, std::span<const float> frames) {
  const std::optional<double> left = phaseOf(leftHertz, frames, 0);
  const std::optional<double> right = phaseOf(rightHertz, frames, 1);
  if (!left || !right) {
    return std::nullopt;
  }
  const double coarse = (*right - *left) / fullTurn * unambiguous;
  const double withinPeriod = *left / fullTurn * leftPeriod;
  const double position = withinPeriod + leftPeriod * std::round((coarse - withinPeriod) / leftPeriod);
  return Block{start, wrapped(position - static_cast<double>(start))};
}

/// The frames in runs of silence. A tone that crosses zero is no silence.
std::size_t silentFrames(std::span<const float> frames) {
  constexpr std::size_t shortestRun = 8;
  constexpr double audible = amplitude / 250;
  std::size_t silent = 0;
  std::size_t run = 0;
  for (std::size_t i = 0; i < frames.size() / 2; ++i) {
    const bool sounds = std::abs(frames[2 * i]) > audible || std::abs(frames[2 * i + 1]) > audible;
    run = sounds ? 0 : run + 1;
    if (run >= shortestRun) {
      silent += run == shortestRun ? shortestRun : 1;
    }
  }
  return silent;
}

/// A cut, or the two ends of a silence, spoil up to two blocks.
std::size_t withoutSpoiltBlocks(std::size_t frames) {
  constexpr std::size_t spoilt = 2 * blockFrames;
  return frames > spoilt ? frames - spoilt : 0;
}

/// The length of the interruption after a block, if nothing follows that holds the tones.
std::size_t interruptionAtEnd(std::span<const float> rest) {
  return std::max(silentFrames(rest), withoutSpoiltBlocks(rest.size() / 2));
}

/// The length of the interruption between a block and the next one that holds the tones.
std::size_t interruption(const Block& before, const Block& after, std::span<const float> all) {
  const std::size_t silent = silentFrames(all.subspan(2 * before.start, 2 * (after.end() - before.start)));
  const double leftOut = std::abs(wrapped(after.offset - before.offset + static_cast<double>(silent)));
  return std::max({silent, static_cast<std::size_t>(std::lround(leftOut)),
                   withoutSpoiltBlocks(after.start - before.end())});
}

}  // namespace

std::filesystem::path PositionTones::makeFile(const test::AudioFiles& files, double seconds) {
  std::ostringstream source;
  source << "aevalsrc=" << amplitude << "*sin(2*PI*" << leftHertz << "*t)|" << amplitude << "*sin(2*PI*"
         << rightHertz << "*t):s=" << test::Recording::sampleRate << ":d=" << seconds;
  return files.make("position.m4a", {"-f", "lavfi", "-i", source.str(), "-c:a", "aac", "-b:a", "160k"});
}

PositionTones::Interruptions PositionTones::interruptionsIn(const test::Recording& recording) {
  const std::span<const float> all(recording.samples);
  Interruptions result;
  const auto add = [&result](std::size_t frames) {
    result.longest = std::max(result.longest, frames);
    result.missed += frames;
  };
  std::optional<Block> last;
  for (std::size_t start = 0; start + blockFrames <= recording.frames(); start += blockFrames) {
    const std::optional<Block> block = blockAt(start, all.subspan(2 * start, 2 * blockFrames));
    if (block && last) {
      add(interruption(*last, *block, all));
    }
    last = block ? block : last;
  }
  add(interruptionAtEnd(all.subspan(last ? 2 * last->end() : 0)));
  return result;
}

}  // namespace mireval::bench
