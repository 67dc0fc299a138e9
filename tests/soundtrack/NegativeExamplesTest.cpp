#include "measures/Figures.h"
#include "measures/Recording.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <set>
#include <string>

namespace mireval::soundtrack {
namespace {

using Names = std::set<std::string>;

/// Each of these must be refused for its own fault.
class NegativeExamplesTest : public testing::Test {
 protected:
  static Recording recordingOf(const std::string& name) {
    const RecordingResult loaded = Recording::load(std::filesystem::path(NEGATIVE_FILES) / (name + ".m4a"));
    EXPECT_TRUE(loaded.recording) << loaded.error;
    return loaded.recording.value_or(Recording{});
  }

  static Names unmetFigures(const Recording& recording, Mood mood) {
    constexpr double secondsPerBar = 4;
    Names names;
    for (const Figure& figure : figuresOf(Measurement::of(recording, secondsPerBar), mood)) {
      if (!figure.isMet()) {
        names.insert(figure.name);
      }
    }
    return names;
  }
};

TEST_F(NegativeExamplesTest, ADroneHasNeitherHarmonyNorFormNorBreath) {
  EXPECT_EQ(unmetFigures(recordingOf("drone"), Mood::focus),
            (Names{"harmonic movement", "form", "loudness range"}));
}

TEST_F(NegativeExamplesTest, ALoopHasNeitherFormNorBreath) {
  EXPECT_EQ(unmetFigures(recordingOf("loop"), Mood::focus), (Names{"form", "loudness range"}));
}

TEST_F(NegativeExamplesTest, RainAloneHasNoTonesAndNoMiddle) {
  EXPECT_EQ(unmetFigures(recordingOf("rain"), Mood::relaxation),
            (Names{"tonal share", "correlation of the channels"}));
}

TEST_F(NegativeExamplesTest, AStepInTheMusicIsAClick) {
  Recording recording = recordingOf("drone");
  const std::size_t from = recording.left.size() / 2;
  for (std::size_t i = from; i < from + 100; ++i) {
    recording.left[i] += 0.05F;
  }
  EXPECT_EQ(unmetFigures(recording, Mood::focus),
            (Names{"harmonic movement", "form", "loudness range", "click ratio"}));
}

TEST_F(NegativeExamplesTest, ACutInTheMusicIsAClick) {
  Recording recording = recordingOf("loop");
  std::size_t cut = recording.left.size() - 10 * static_cast<std::size_t>(recording.sampleRate);
  while (std::abs(recording.left[cut - 1]) < 0.1F) {
    --cut;
  }
  recording.left.resize(cut);
  recording.right.resize(cut);
  EXPECT_EQ(unmetFigures(recording, Mood::focus), (Names{"form", "loudness range", "click ratio"}));
}

class CopyTest : public testing::TestWithParam<std::string> {};

TEST_P(CopyTest, InAnotherKeyAndTempoIsNoPieceOfItsOwn) {
  const RecordingResult original =
      Recording::load(std::filesystem::path(NEGATIVE_FILES) / (GetParam() + ".m4a"));
  ASSERT_TRUE(original.recording) << original.error;
  const RecordingResult copy =
      Recording::load(std::filesystem::path(NEGATIVE_FILES) / ("copy-of-" + GetParam() + ".m4a"));
  ASSERT_TRUE(copy.recording) << copy.error;
  EXPECT_NEAR(copy.recording->seconds() / original.recording->seconds(), 1 / 1.08, 0.02);
  const double apart = distance(Fingerprint::of(*original.recording), Fingerprint::of(*copy.recording));
  EXPECT_GT(apart, 1) << "not a copy, but the same";
  EXPECT_FALSE(distanceWithinAMood.contains(apart)) << apart;
}

INSTANTIATE_TEST_SUITE_P(Negative, CopyTest, testing::Values("focus-13", "tempo-12"), [](const auto& info) {
  std::string name = info.param;
  name[name.find('-')] = '_';
  return name;
});

}  // namespace
}  // namespace mireval::soundtrack
