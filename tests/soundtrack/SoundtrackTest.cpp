#include "library/Catalogue.h"
#include "platform/linux/FolderResourceBundle.h"
#include "platform/linux/audio/AudioDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace mireval::test {
namespace {

constexpr double shortestSeconds = 60;
constexpr double longestSeconds = 6 * 60;
constexpr double quietestDb = -30;
constexpr double loudestDb = -9;
constexpr float clipped = 0.9999F;

std::vector<Track> allTracks() {
  std::vector<Track> tracks;
  for (const auto& [mood, list] : catalogue()) {
    tracks.insert(tracks.end(), list.begin(), list.end());
  }
  return tracks;
}

std::optional<std::filesystem::path> fileOf(const Track& track) {
  return FolderResourceBundle(RESOURCE_FOLDER)
      .urlForResource(*track.resourceName, *track.fileExtension, QStringLiteral("PreviewAudio"));
}

class SoundtrackTest : public testing::TestWithParam<Track> {};

TEST_P(SoundtrackTest, IsAWholeAudiblePiece) {
  const auto file = fileOf(GetParam());
  ASSERT_TRUE(file) << "not made yet: build the target soundtrack";
  const AudioDecoderResult opened = AudioDecoder::open(*file);
  ASSERT_TRUE(opened.decoder) << opened.error.toStdString();

  std::array<float, 16384> block{};
  std::size_t frames = 0;
  std::size_t clippedSamples = 0;
  double energy = 0;
  double sum = 0;
  while (const std::size_t count = opened.decoder->read(block)) {
    for (const float sample : std::span(block).first(count * AudioDecoder::channelCount)) {
      clippedSamples += std::abs(sample) >= clipped ? 1 : 0;
      energy += static_cast<double>(sample) * sample;
      sum += sample;
    }
    frames += count;
  }
  ASSERT_GT(frames, 0U);
  EXPECT_FALSE(opened.decoder->failed());
  const double seconds = static_cast<double>(frames) / opened.decoder->sampleRate();
  EXPECT_NEAR(seconds, opened.decoder->durationSeconds(), 0.001);
  EXPECT_GE(seconds, shortestSeconds);
  EXPECT_LE(seconds, longestSeconds);
  EXPECT_EQ(clippedSamples, 0U);
  const double samples = static_cast<double>(frames * AudioDecoder::channelCount);
  const double levelDb = 10 * std::log10(energy / samples);
  EXPECT_GT(levelDb, quietestDb);
  EXPECT_LT(levelDb, loudestDb);
  EXPECT_LT(std::abs(sum / samples), 1e-3) << "the sound has an offset";
}

INSTANTIATE_TEST_SUITE_P(Catalogue, SoundtrackTest, testing::ValuesIn(allTracks()), [](const auto& info) {
  QString name = *info.param.resourceName;
  return name.replace(QLatin1Char('-'), QLatin1Char('_')).toStdString();
});

/// How loud a piece is in each of its first fifty seconds: different music differs, a copy does not, however
/// it was encoded.
std::array<double, 50> loudnessOverTime(const Track& track) {
  std::array<double, 50> levels{};
  const auto file = fileOf(track);
  const auto decoder = file ? AudioDecoder::open(*file).decoder : nullptr;
  if (!decoder) {
    return levels;
  }
  std::vector<float> second(static_cast<std::size_t>(decoder->sampleRate()) * AudioDecoder::channelCount);
  for (double& level : levels) {
    decoder->read(second);
    double energy = 0;
    for (const float sample : second) {
      energy += static_cast<double>(sample) * sample;
    }
    level = 10 * std::log10(energy / static_cast<double>(second.size()) + 1e-9);
  }
  return levels;
}

TEST(SoundtrackAsAWholeTest, HasNoTwoPiecesAlike) {
  std::vector<std::pair<QString, std::array<double, 50>>> pieces;
  for (const Track& track : allTracks()) {
    ASSERT_TRUE(fileOf(track)) << track.resourceName->toStdString();
    pieces.emplace_back(*track.resourceName, loudnessOverTime(track));
  }
  constexpr double leastDifferenceDb = 0.3;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (std::size_t j = i + 1; j < pieces.size(); ++j) {
      double difference = 0;
      for (std::size_t second = 0; second < pieces[i].second.size(); ++second) {
        difference += std::abs(pieces[i].second.at(second) - pieces[j].second.at(second));
      }
      difference /= static_cast<double>(pieces[i].second.size());
      EXPECT_GT(difference, leastDifferenceDb)
          << pieces[i].first.toStdString() << " and " << pieces[j].first.toStdString();
    }
  }
}

}  // namespace
}  // namespace mireval::test
