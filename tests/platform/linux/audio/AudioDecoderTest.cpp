#include "AudioFiles.h"

#include "platform/linux/audio/AudioDecoder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

class AudioDecoderTest : public testing::Test {
 protected:
  static Recording decodeAll(AudioDecoder& decoder) {
    Recording recording;
    std::array<float, 3000> block{};
    std::size_t count = 0;
    while ((count = decoder.read(block)) > 0) {
      recording.samples.insert(recording.samples.end(), block.begin(),
                               block.begin() + static_cast<std::ptrdiff_t>(count * 2));
    }
    return recording;
  }

  /// Throws when the file is refused.
  static std::unique_ptr<AudioDecoder> open(const std::filesystem::path& file) {
    return AudioDecoder::open(file).value();
  }

  /// Throws when the file is accepted.
  static QString errorOf(const std::filesystem::path& file) {
    const auto begin = std::chrono::steady_clock::now();
    const auto opened = AudioDecoder::open(file);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
    return opened ? throw std::runtime_error("not refused") : opened.error();
  }

  AudioFiles files;
};

TEST_F(AudioDecoderTest, DeliversExactlyTheFramesOfTheSource) {
  const auto decoder = open(files.tone(440, 10));
  EXPECT_EQ(decoder->sampleRate(), 44100);
  EXPECT_DOUBLE_EQ(decoder->durationSeconds(), 10.0);
  const Recording sound = decodeAll(*decoder);
  EXPECT_EQ(sound.frames(), 441000U);
  EXPECT_NEAR(sound.levelDb(0), -15.05, 0.1);
  EXPECT_NEAR(sound.levelDb(1), -15.05, 0.1);
  EXPECT_GT(sound.shareOfTone(440), 0.99);
  EXPECT_FALSE(decoder->failed());
}

TEST_F(AudioDecoderTest, DecodesTheSameSamplesAsTheReferenceProgram) {
  const auto file = files.noise(3);
  const auto decoder = open(file);
  const Recording ours = decodeAll(*decoder);
  const Recording theirs = files.decoded(file);
  ASSERT_EQ(ours.frames(), 3U * 44100);
  ASSERT_GE(theirs.frames(), ours.frames());
  for (std::size_t i = 0; i < ours.samples.size(); ++i) {
    ASSERT_EQ(ours.samples[i], theirs.samples[i]) << "sample " << i;
  }
}

TEST_F(AudioDecoderTest, ReadsInAnyBlockSize) {
  const auto file = files.noise(1);
  const Recording expected = decodeAll(*open(file));
  const auto decoder = open(file);
  std::vector<float> samples;
  std::array<float, 20000> block{};
  for (std::size_t size = 1;; size = size * 7 % 9973 + 1) {
    const std::size_t count = decoder->read(std::span(block).first(size * 2));
    samples.insert(samples.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count * 2));
    if (count < size) {
      break;
    }
  }
  EXPECT_EQ(samples, expected.samples);
  EXPECT_EQ(decoder->read(block), 0U);
}

TEST_F(AudioDecoderTest, PutsMonoOnBothSidesAtFullLevelAndKeepsTheRateOfTheFile) {
  const auto decoder = open(files.tone(440, 2, {.sampleRate = 22050, .channels = 1}));
  EXPECT_EQ(decoder->sampleRate(), 22050);
  const Recording sound = decodeAll(*decoder);
  EXPECT_EQ(sound.frames(), 44100U);
  EXPECT_EQ(sound.channel(0), sound.channel(1));
  EXPECT_NEAR(sound.levelDb(), -15.05, 0.1);
}

TEST_F(AudioDecoderTest, MixesSixChannelsOfFullScaleWithoutExceedingIt) {
  const auto decoder = open(files.make(
      "surround.m4a", {"-f", "lavfi", "-i", "aevalsrc=1|1|1|1|1|1:c=5.1:s=44100:d=1", "-c:a", "alac"}));
  const Recording sound = decodeAll(*decoder);
  ASSERT_EQ(sound.frames(), 44100U);
  const float peak = std::ranges::max(sound.samples);
  EXPECT_LE(peak, 1.0F);
  EXPECT_GT(peak, 0.99F);
}

TEST_F(AudioDecoderTest, DecodesAFileOfFiftyMilliseconds) {
  const auto decoder = open(files.tone(440, 0.05));
  EXPECT_EQ(decodeAll(*decoder).frames(), 2205U);
}

TEST_F(AudioDecoderTest, RefusesAShorterFile) {
  for (const double seconds : {0.001, 0.02, 0.049}) {
    EXPECT_FALSE(errorOf(files.tone(440, seconds)).isEmpty()) << seconds;
  }
}

TEST_F(AudioDecoderTest, IgnoresACoverPicture) {
  const auto tone = files.tone(440, 1);
  const auto cover = files.make("cover.png", {"-f", "lavfi", "-i", "color=red:s=64x64", "-frames:v", "1"});
  const auto file =
      files.make("with-cover.m4a", {"-i", tone.string(), "-i", cover.string(), "-map", "0", "-map", "1", "-c",
                                    "copy", "-disposition:v:0", "attached_pic"});
  const auto decoder = open(file);
  EXPECT_EQ(decodeAll(*decoder).frames(), 44100U);
}

TEST_F(AudioDecoderTest, PlaysWhatIsThereOfATruncatedFile) {
  const auto decoder = open(files.truncated(0.5, true));
  EXPECT_DOUBLE_EQ(decoder->durationSeconds(), 4.0);
  const Recording sound = decodeAll(*decoder);
  EXPECT_GT(sound.seconds(), 1.0);
  EXPECT_LT(sound.seconds(), 3.0);
}

TEST_F(AudioDecoderTest, SkipsFramesThatAreMissing) {
  std::string content = AudioFiles::contentOf(files.tone(440, 4));
  const std::size_t middle = content.find("mdat") + (content.size() - content.find("mdat")) / 2;
  content.replace(middle, 2000, std::string(2000, '\xff'));
  const auto decoder = open(files.bytes("holes.m4a", content));
  const Recording sound = decodeAll(*decoder);
  EXPECT_GT(sound.seconds(), 3.0);
  EXPECT_LE(sound.seconds(), 4.0);
}

TEST_F(AudioDecoderTest, RefusesWhatIsNoRegularFileWithoutWaitingForIt) {
  EXPECT_EQ(errorOf(files.folder() / "nothing.m4a"), u"No such file or directory"_s);
  std::filesystem::create_directory(files.folder() / "folder.m4a");
  EXPECT_EQ(errorOf(files.folder() / "folder.m4a"), u"Is a directory"_s);
  const auto pipe = files.folder() / "pipe.m4a";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(errorOf(pipe), u"Invalid argument"_s);
}

TEST_F(AudioDecoderTest, RefusesWhatIsNoWholeMpeg4File) {
  const std::string tone = files.tone(440, 1).filename().string();
  const auto wave = files.make("tone.wav", {"-f", "lavfi", "-i", "sine=duration=1"});
  for (const std::string& content :
       {std::string(), std::string("This is not music.\n"), AudioFiles::contentOf(wave),
        // A list that names another file.
        "ffconcat version 1.0\nfile " + tone + "\n"}) {
    EXPECT_FALSE(errorOf(files.bytes("odd.m4a", content)).isEmpty());
  }
  // The index is cut off.
  EXPECT_FALSE(errorOf(files.truncated(0.5, false)).isEmpty());
}

TEST_F(AudioDecoderTest, RefusesAFileWithoutAudio) {
  const auto video = files.make("video.mp4", {"-f", "lavfi", "-i", "color=red:s=64x64:d=1", "-c:v", "mpeg4"});
  EXPECT_EQ(errorOf(video), u"Stream not found"_s);
  std::string content = AudioFiles::contentOf(files.tone(440, 1));
  const std::size_t begin = content.find("mdat") + 4;
  const std::size_t end = content.find("moov") - 4;
  content.replace(begin, end - begin, std::string(end - begin, '\xff'));
  EXPECT_FALSE(errorOf(files.bytes("garbage.m4a", content)).isEmpty());
}

}  // namespace
}  // namespace mireval::test
