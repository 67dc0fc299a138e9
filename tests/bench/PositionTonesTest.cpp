#include "PositionTones.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace mireval::bench {
namespace {

using test::Recording;
using Interruptions = PositionTones::Interruptions;

class PositionTonesTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const test::AudioFiles files;
    track = files.decoded(PositionTones::makeFile(files, 2));
  }
  static void TearDownTestSuite() { track = {}; }

  static Recording framesOfTrack(std::size_t from, std::size_t to) {
    return {{track.samples.begin() + static_cast<std::ptrdiff_t>(2 * from),
             track.samples.begin() + static_cast<std::ptrdiff_t>(2 * to)}};
  }

  static Recording silence(std::size_t frames) { return {std::vector<float>(2 * frames)}; }

  /// The highest tone that there is.
  static Recording otherSound(std::size_t frames) {
    Recording sound = silence(frames);
    for (std::size_t i = 0; i < frames; ++i) {
      sound.samples[2 * i] = sound.samples[2 * i + 1] = i % 2 == 0 ? 0.25F : -0.25F;
    }
    return sound;
  }

  static Interruptions interruptionsIn(const std::vector<Recording>& parts) {
    Recording all;
    for (const Recording& part : parts) {
      all.samples.insert(all.samples.end(), part.samples.begin(), part.samples.end());
    }
    return PositionTones::interruptionsIn(all);
  }

  static void expectOne(std::size_t frames, const std::vector<Recording>& parts) {
    const Interruptions found = interruptionsIn(parts);
    // The codec leaves a little noise.
    EXPECT_NEAR(static_cast<double>(found.longest), static_cast<double>(frames), 1);
    EXPECT_EQ(found.missed, found.longest);
  }

  static inline Recording track;
};

TEST_F(PositionTonesTest, FindsNothingInTheTrack) {
  EXPECT_EQ(interruptionsIn({framesOfTrack(0, 88200)}).missed, 0U);
}

TEST_F(PositionTonesTest, DoesNotCountBeforeTheTonesBegin) {
  EXPECT_EQ(interruptionsIn({silence(30000), framesOfTrack(1000, 80000)}).missed, 0U);
}

TEST_F(PositionTonesTest, CountsARecordingWithoutTones) {
  expectOne(30000, {silence(30000)});
}

TEST_F(PositionTonesTest, CountsSilenceThatDelaysTheTrack) {
  expectOne(700, {framesOfTrack(0, 20123), silence(700), framesOfTrack(20123, 80000)});
}

TEST_F(PositionTonesTest, CountsSilenceInPlaceOfTheTrack) {
  expectOne(700, {framesOfTrack(0, 20123), silence(700), framesOfTrack(20823, 80000)});
}

TEST_F(PositionTonesTest, CountsSilenceOfMoreThanASecond) {
  expectOne(50000, {framesOfTrack(0, 20123), silence(50000), framesOfTrack(20123, 80000)});
}

TEST_F(PositionTonesTest, CountsSilenceAtTheEnd) {
  expectOne(22000, {framesOfTrack(0, 22000), silence(22000)});
}

TEST_F(PositionTonesTest, CountsFramesThatAreLeftOut) {
  expectOne(40, {framesOfTrack(0, 20123), framesOfTrack(20163, 80000)});
}

TEST_F(PositionTonesTest, CountsPeriodsThatAreLeftOut) {
  // Eleven periods of the left tone, eleven and a bit of the right one.
  expectOne(1102, {framesOfTrack(0, 20020), framesOfTrack(21122, 80000)});
}

TEST_F(PositionTonesTest, CountsFramesThatAreRepeated) {
  expectOne(2123, {framesOfTrack(0, 20123), framesOfTrack(18000, 80000)});
}

TEST_F(PositionTonesTest, TellsTheLongestFromTheSum) {
  const Interruptions found =
      interruptionsIn({framesOfTrack(0, 20123), silence(700), framesOfTrack(20123, 50000), silence(300),
                       framesOfTrack(50000, 80000)});
  EXPECT_NEAR(static_cast<double>(found.longest), 700, 1);
  EXPECT_NEAR(static_cast<double>(found.missed), 1000, 2);
}

TEST_F(PositionTonesTest, CountsOtherSoundInPlaceOfTheTones) {
  const Interruptions found =
      interruptionsIn({framesOfTrack(0, 20000), otherSound(10000), framesOfTrack(30000, 80000)});
  // Up to two blocks of ten milliseconds are taken for the two cuts.
  EXPECT_NEAR(static_cast<double>(found.longest), 10000, 882);
}

}  // namespace
}  // namespace mireval::bench
