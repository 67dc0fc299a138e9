#include "AudioFiles.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/Mp4SampleTables.h"

#include <gtest/gtest.h>

#include <ctime>
#include <fstream>
#include <random>
#include <sstream>

namespace mireval::test {
namespace {

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// A line of the process's status, such as VmRSS, in megabytes.
double megabytes(const std::string& name) {
  const std::string status = AudioFiles::contentOf("/proc/self/status");
  double kilobytes = 0;
  std::istringstream(status.substr(status.find(name) + name.size() + 1)) >> kilobytes;
  return kilobytes / 1024;
}

std::string bigEndian(std::uint32_t number) {
  return {static_cast<char>(number >> 24), static_cast<char>(number >> 16), static_cast<char>(number >> 8),
          static_cast<char>(number)};
}

class Mp4SampleTablesTest : public testing::Test {
 protected:
  void SetUp() override { m_good = AudioFiles::contentOf(m_files.tone(440, 10)); }

  /// A good file with other bytes at `offset` after the name of the box `box`.
  std::string changed(const std::string& box, std::size_t offset, const std::string& bytes) const {
    std::string content = m_good;
    const std::size_t begin = content.find(box);
    EXPECT_NE(begin, std::string::npos);
    return content.replace(begin + 4 + offset, bytes.size(), bytes);
  }

  /// A good file with `bytes` at the end of the box `box`, which lies in `parents`.
  std::string extended(const std::string& box, const std::vector<std::string>& parents,
                       const std::string& bytes) const {
    std::string content = m_good;
    const auto sizeOf = [&](const std::string& name) {
      const std::size_t at = content.find(name) - 4;
      std::uint32_t size = 0;
      for (std::size_t i = at; i < at + 4; ++i) {
        size = size << 8 | static_cast<std::uint8_t>(content.at(i));
      }
      return size;
    };
    const std::size_t end = content.find(box) - 4 + sizeOf(box);
    const auto grow = [&](const std::string& name) {
      const std::string size = bigEndian(sizeOf(name) + static_cast<std::uint32_t>(bytes.size()));
      content.replace(content.find(name) - 4, size.size(), size);
    };
    grow(box);
    for (const std::string& parent : parents) {
      grow(parent);
    }
    return content.insert(end, bytes);
  }

  /// Whether the decoder opens the file; that takes less than a second and 64 MB in any case.
  bool opens(const std::string& content) {
    const auto file = m_files.bytes("file.m4a", content);
    // The highest use of memory is that since now.
    std::ofstream("/proc/self/clear_refs") << 5;
    const double memory = megabytes("VmRSS");
    const double begin = processorSeconds();
    const bool opened = AudioDecoder::open(file).has_value();
    EXPECT_LT(processorSeconds() - begin, 1.0);
    EXPECT_LT(megabytes("VmHWM") - memory, 64.0);
    EXPECT_TRUE(!opened || Mp4SampleTables::areAffordable(file));
    return opened;
  }

  bool isAffordable(const std::string& content) {
    return Mp4SampleTables::areAffordable(m_files.bytes("file.m4a", content));
  }

  AudioFiles m_files;
  std::string m_good;
};

TEST_F(Mp4SampleTablesTest, RefusesMillionsOfSamplesThatAFewBytesClaim) {
  ASSERT_TRUE(opens(m_good));
  for (const std::uint32_t count : {10'000'000U, 52'000'000U, 0xffffffffU}) {
    // Samples of one byte, all of them in one chunk and at the same time.
    std::string claim = changed("stsz", 4, bigEndian(1) + bigEndian(count));
    claim.replace(claim.find("stts") + 12, 8, bigEndian(count) + bigEndian(0));
    claim.replace(claim.find("stsc") + 16, 4, bigEndian(count));
    EXPECT_FALSE(isAffordable(claim)) << count;
    EXPECT_FALSE(opens(claim)) << count;
  }
}

TEST_F(Mp4SampleTablesTest, BelievesNoUncompressedSoundThatItIsNot) {
  // A single sample per tick is how uncompressed sound is described, but these chunks hold too much of it.
  std::string claim = changed("stsz", 4, bigEndian(1) + bigEndian(0xffffffff));
  claim.replace(claim.find("stts") + 8, 12, bigEndian(1) + bigEndian(0xffffffff) + bigEndian(1));
  claim.replace(claim.find("stsc") + 16, 4, bigEndian(0xffffffff));
  EXPECT_FALSE(isAffordable(claim));
  EXPECT_FALSE(opens(claim));
}

TEST_F(Mp4SampleTablesTest, AllowsUncompressedSound) {
  const auto file = m_files.make("sound.mov", {"-f", "lavfi", "-i", "anoisesrc=d=60", "-c:a", "pcm_s16le"});
  EXPECT_TRUE(Mp4SampleTables::areAffordable(file));
  EXPECT_TRUE(AudioDecoder::open(file).has_value());
}

TEST_F(Mp4SampleTablesTest, RefusesALongEditList) {
  const std::string edit = bigEndian(1000) + bigEndian(0) + bigEndian(0x10000);
  const auto withEdits = [&](int count) {
    std::string edits;
    for (int i = 0; i < count; ++i) {
      edits += edit;
    }
    return extended("elst", {"edts", "trak", "moov"}, edits);
  };
  EXPECT_TRUE(opens(withEdits(2)));
  EXPECT_FALSE(isAffordable(withEdits(1001)));
  EXPECT_FALSE(opens(withEdits(100'000)));
}

// To begin where the edit begins, FFmpeg decodes everything from the only sync sample on.
TEST_F(Mp4SampleTablesTest, SearchesTheFirstSoundNotForLong) {
  const auto beginningAt = [&](std::uint32_t second) {
    m_good = AudioFiles::contentOf(m_files.tone(440, 10));
    m_good = changed("elst", 12, bigEndian(second * 44100));
    return extended("stbl", {"minf", "mdia", "trak", "moov"},
                    bigEndian(20) + "stss" + bigEndian(0) + bigEndian(1) + bigEndian(1));
  };
  EXPECT_TRUE(opens(beginningAt(1)));
  EXPECT_FALSE(opens(beginningAt(8)));
}

TEST_F(Mp4SampleTablesTest, CountsTheSamplesOfFragments) {
  const std::string whole = AudioFiles::contentOf(
      m_files.make("fragments.m4a", {"-f", "lavfi", "-i", "sine=d=30", "-c:a", "aac", "-movflags",
                                     "frag_keyframe+empty_moov", "-frag_duration", "1000000"}));
  EXPECT_TRUE(opens(whole));
  // The last fragment, which is read long after the file is opened.
  std::string claim = whole;
  claim.replace(claim.rfind("trun") + 8, 4, bigEndian(100'000'000));
  EXPECT_FALSE(isAffordable(claim));
  EXPECT_FALSE(opens(claim));
}

TEST_F(Mp4SampleTablesTest, RefusesADescriptionThatIsHidden) {
  const std::string samples = bigEndian(20) + "stsz" + bigEndian(0) + bigEndian(1) + bigEndian(10'000'000);
  EXPECT_FALSE(isAffordable(extended("stsd", {"stbl", "minf", "mdia", "trak", "moov"}, samples)));
  EXPECT_FALSE(isAffordable(extended("moov", {}, bigEndian(8) + "cmov")));
  std::string deep;
  for (int depth = 0; depth < 20; ++depth) {
    deep.insert(0, bigEndian(static_cast<std::uint32_t>(deep.size()) + 8) + "udta");
  }
  EXPECT_FALSE(isAffordable(extended("moov", {}, deep)));
}

TEST_F(Mp4SampleTablesTest, RefusesWhatDescribesNoSound) {
  EXPECT_FALSE(Mp4SampleTables::areAffordable(m_files.folder() / "nothing.m4a"));
  for (const std::string& content : {std::string(), std::string("text"), bigEndian(8) + "free",
                                     bigEndian(1) + "mdat", bigEndian(0xffffffff) + "moof"}) {
    EXPECT_FALSE(isAffordable(content));
  }
  // Two hundred thousand boxes.
  std::string many;
  for (int i = 0; i < 200'000; ++i) {
    many += bigEndian(8) + "free";
  }
  EXPECT_FALSE(isAffordable(many + m_good));
}

// Each byte of the description takes a random value. Whatever the file becomes, opening it is cheap.
TEST_F(Mp4SampleTablesTest, DamageNeverMakesAFileExpensive) {
  std::mt19937 random(1);
  const std::size_t begin = m_good.find("moov") - 4;
  int opened = 0;
  for (int round = 0; round < 300; ++round) {
    std::string content = m_good;
    for (int change = 0; change < 1 + round % 4; ++change) {
      content.at(begin + random() % (m_good.size() - begin)) = static_cast<char>(random());
    }
    opened += opens(content) ? 1 : 0;
  }
  EXPECT_GT(opened, 0);
}

}  // namespace
}  // namespace mireval::test
