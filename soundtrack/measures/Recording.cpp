#include "measures/Recording.h"

#include "platform/linux/audio/AudioDecoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace mireval::soundtrack {
namespace {

/// Files state their length in milliseconds.
constexpr double durationTolerance = 0.001;

}  // namespace

RecordingResult Recording::load(const std::filesystem::path& file) {
  const auto opened = AudioDecoder::open(file);
  if (!opened) {
    return {std::nullopt, file.string() + ": " + opened.error().toStdString()};
  }
  AudioDecoder& decoder = **opened;
  Recording recording;
  recording.sampleRate = decoder.sampleRate();
  const auto expected = static_cast<std::size_t>(decoder.durationSeconds() * decoder.sampleRate()) + 1;
  recording.left.reserve(expected);
  recording.right.reserve(expected);
  std::array<float, 16384> block{};
  while (const std::size_t count = decoder.read(block)) {
    for (std::size_t i = 0; i < count; ++i) {
      recording.left.push_back(block.at(AudioDecoder::channelCount * i));
      recording.right.push_back(block.at(AudioDecoder::channelCount * i + 1));
    }
  }
  const bool isShort = recording.seconds() < decoder.durationSeconds() - durationTolerance;
  if (decoder.failed() || isShort) {
    return {std::nullopt, file.string() + ": damaged after " + std::to_string(recording.seconds()) + " s"};
  }
  return {std::move(recording), {}};
}

std::vector<float> Recording::mono() const {
  std::vector<float> mean(left.size());
  std::transform(left.begin(), left.end(), right.begin(), mean.begin(),
                 [](float l, float r) { return (l + r) / 2; });
  return mean;
}

std::vector<float> Recording::normalisedMono() const {
  std::vector<float> samples = mono();
  double energy = 0;
  for (const float sample : samples) {
    energy += static_cast<double>(sample) * sample;
  }
  if (energy > 0) {
    const auto gain = static_cast<float>(std::sqrt(static_cast<double>(samples.size()) / energy));
    for (float& sample : samples) {
      sample *= gain;
    }
  }
  return samples;
}

}  // namespace mireval::soundtrack
