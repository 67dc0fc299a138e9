#include "AudioFiles.h"

#include "platform/linux/audio/FrameHistory.h"

#include <gtest/gtest.h>

#include <vector>

namespace mireval::test {
namespace {

class FrameHistoryTest : public testing::Test {
 protected:
  std::vector<float> read(std::uint64_t position, std::size_t frames) {
    std::vector<float> samples;
    while (samples.size() < frames * 2) {
      const auto part = m_history.read(position + samples.size() / 2, frames - samples.size() / 2);
      if (part.empty()) {
        break;
      }
      samples.insert(samples.end(), part.begin(), part.end());
    }
    return samples;
  }

  std::vector<float> expected(std::size_t position, std::size_t frames) const {
    const auto from = m_reference.samples.begin() + static_cast<std::ptrdiff_t>(position * 2);
    return {from, from + static_cast<std::ptrdiff_t>(frames * 2)};
  }

  AudioFiles m_files;
  std::filesystem::path m_file = m_files.noise(2);
  Recording m_reference = m_files.decoded(m_file);
  FrameHistory m_history{AudioDecoder::open(m_file).value(), 0.5};
};

TEST_F(FrameHistoryTest, DecodesForwardAndRepeatsWhatItRemembers) {
  EXPECT_EQ(read(0, 10000), expected(0, 10000));
  EXPECT_EQ(read(2000, 5000), expected(2000, 5000));
  EXPECT_EQ(read(8000, 10000), expected(8000, 10000));
  EXPECT_EQ(m_history.decodedFrames(), 18000U);
  EXPECT_EQ(m_history.oldestFrame(), 0U);
}

TEST_F(FrameHistoryTest, ForgetsWhatIsOlderThanItsRoomAndEndsWithTheFile) {
  EXPECT_EQ(read(0, 50000), expected(0, 50000));
  EXPECT_EQ(m_history.oldestFrame(), 50000U - 22050);
  EXPECT_EQ(read(m_history.oldestFrame(), 22050), expected(50000 - 22050, 22050));
  EXPECT_EQ(read(50000, 50000), expected(50000, 88200 - 50000));
  EXPECT_EQ(m_history.decodedFrames(), 88200U);
  EXPECT_EQ(read(88000, 1000), expected(88000, 200));
}

}  // namespace
}  // namespace mireval::test
