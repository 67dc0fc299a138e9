#include "report/TrackPicture.h"

#include <gtest/gtest.h>

#include <QColor>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

namespace mireval::soundtrack::test {
namespace {

constexpr int rowsPerNote = 3;
constexpr int highestNote = 132;
constexpr int chromaTop = 328;
constexpr int rowsPerPitchClass = 7;

/// A sine with this note number, 69 being 440 Hz, between two shares of the recording.
Recording sine(double seconds, double note, double from = 0, double to = 1) {
  Recording recording;
  const auto count = static_cast<std::size_t>(seconds * recording.sampleRate);
  recording.left.resize(count);
  const double turnsPerSample = 440 * std::pow(2, (note - 69) / 12) / recording.sampleRate;
  for (auto i = static_cast<std::size_t>(from * static_cast<double>(count));
       i < static_cast<std::size_t>(to * static_cast<double>(count)); ++i) {
    recording.left[i] =
        static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * turnsPerSample * static_cast<double>(i)));
  }
  recording.right = recording.left;
  return recording;
}

/// Marks stand at the left edge, so tests look in the middle.
int brightestRow(const QImage& picture, int column, int top, int bottom) {
  int brightest = top;
  for (int row = top; row < bottom; ++row) {
    if (qGray(picture.pixel(column, row)) > qGray(picture.pixel(column, brightest))) {
      brightest = row;
    }
  }
  return brightest;
}

TEST(TrackPictureTest, ShowsANoteInItsRow) {
  for (const int note : {45, 69, 93, 117}) {
    const QImage picture = trackPicture(sine(20, note), Loudness());
    const int row = brightestRow(picture, picture.width() / 2, 0, chromaTop);
    EXPECT_NEAR(row, (highestNote - note) * rowsPerNote, 2) << note;
  }
}

TEST(TrackPictureTest, ShowsANoteInItsPitchClass) {
  for (const int pitchClass : {0, 4, 11}) {
    const QImage picture = trackPicture(sine(20, 60 + pitchClass), Loudness());
    const int row = brightestRow(picture, picture.width() / 2, chromaTop, chromaTop + 12 * rowsPerPitchClass);
    EXPECT_EQ((row - chromaTop) / rowsPerPitchClass, 11 - pitchClass);
  }
}

TEST(TrackPictureTest, RunsFromStartToEnd) {
  const QImage picture = trackPicture(sine(20, 69, 0.25, 0.5), Loudness());
  const int row = (highestNote - 69) * rowsPerNote;
  const auto bright = [&](double share) {
    return qGray(picture.pixel(static_cast<int>(share * picture.width()), row)) > 100;
  };
  EXPECT_FALSE(bright(0.2));
  EXPECT_TRUE(bright(0.3));
  EXPECT_TRUE(bright(0.45));
  EXPECT_FALSE(bright(0.55));
}

TEST(TrackPictureTest, DrawsWhateverItIsGiven) {
  Loudness loudness;
  loudness.shortTerm.assign(1000, -std::numeric_limits<double>::infinity());
  for (const double seconds : {0.0, 0.001, 0.1, 3.0}) {
    EXPECT_FALSE(trackPicture(sine(seconds, 69), loudness).isNull());
  }
}

}  // namespace
}  // namespace mireval::soundtrack::test
