#include "report/TrackSource.h"

#include "library/Catalogue.h"
#include "measures/Figures.h"
#include "measures/Recording.h"
#include "platform/qt/FolderResourceBundle.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>
#include <ostream>
#include <vector>

namespace mireval {

using namespace Qt::StringLiterals;

void PrintTo(const Track& track, std::ostream* stream) {
  *stream << track.title.toStdString();
}

namespace soundtrack {
namespace {

std::vector<Track> allTracks() {
  std::vector<Track> tracks;
  for (const auto& [mood, list] : catalogue()) {
    tracks.insert(tracks.end(), list.begin(), list.end());
  }
  return tracks;
}

std::optional<std::filesystem::path> fileOf(const Track& track) {
  return FolderResourceBundle(RESOURCE_FOLDER)
      .urlForResource(*track.resourceName, *track.fileExtension, u"PreviewAudio"_s);
}

std::string nameOf(const Track& track) {
  return track.resourceName->toStdString() + " " + track.title.toStdString();
}

class SoundtrackTest : public testing::TestWithParam<Track> {};

TEST_P(SoundtrackTest, MeetsItsFigures) {
  const Track& track = GetParam();
  const auto file = fileOf(track);
  ASSERT_TRUE(file) << "not made yet: build the target soundtrack";
  const auto source = TrackSource::read(std::filesystem::path(SOUNDTRACK "/tracks") /
                                        (track.resourceName->toStdString() + ".orc"));
  ASSERT_TRUE(source && source->piece) << "its source does not say the tempo";
  const double secondsPerBar = source->piece->beatsPerBar * 60 / source->piece->tempo;

  const RecordingResult loaded = Recording::load(*file);
  ASSERT_TRUE(loaded.recording) << loaded.error;
  for (const Figure& figure : figuresOf(Measurement::of(*loaded.recording, secondsPerBar), track.mood)) {
    EXPECT_TRUE(figure.isMet()) << nameOf(track) << ": " << figure.text();
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, SoundtrackTest, testing::ValuesIn(allTracks()), [](const auto& info) {
  QString name = *info.param.resourceName;
  return name.replace(QLatin1Char('-'), QLatin1Char('_')).toStdString();
});

struct MeasuredTrack {
  std::string name;
  double seconds = 0;
  Fingerprint fingerprint;
};

/// Tracks that cannot be read are failures of the test.
std::vector<MeasuredTrack> measuredTracksOf(Mood mood) {
  std::vector<MeasuredTrack> measured;
  for (const Track& track : catalogue().at(mood)) {
    const auto file = fileOf(track);
    const RecordingResult loaded = file ? Recording::load(*file) : RecordingResult{{}, "not made yet"};
    if (loaded.recording) {
      measured.push_back({nameOf(track), loaded.recording->seconds(), Fingerprint::of(*loaded.recording)});
    } else {
      ADD_FAILURE() << nameOf(track) << ": " << loaded.error;
    }
  }
  return measured;
}

class SoundtrackOfAMoodTest : public testing::TestWithParam<Mood> {};

TEST_P(SoundtrackOfAMoodTest, HasTheRightMeanLengthAndNoTwoPiecesAlike) {
  const std::vector<MeasuredTrack> tracks = measuredTracksOf(GetParam());
  ASSERT_EQ(tracks.size(), 16U);

  const double seconds =
      std::accumulate(tracks.begin(), tracks.end(), 0.0,
                      [](double sum, const MeasuredTrack& track) { return sum + track.seconds; });
  const Figure meanLength{"mean length", "s", seconds / static_cast<double>(tracks.size()),
                          meanLengthOfAMood};
  EXPECT_TRUE(meanLength.isMet()) << meanLength.text();

  for (std::size_t i = 0; i < tracks.size(); ++i) {
    for (std::size_t j = i + 1; j < tracks.size(); ++j) {
      const Figure apart{"distance", "", distance(tracks[i].fingerprint, tracks[j].fingerprint),
                         distanceWithinAMood};
      EXPECT_TRUE(apart.isMet()) << tracks[i].name << " and " << tracks[j].name << ": " << apart.text();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, SoundtrackOfAMoodTest, testing::ValuesIn(allMoods),
                         [](const auto& info) { return rawValue(info.param).toStdString(); });

TEST(SoundtrackAsAWholeTest, IsSmallEnoughToDownload) {
  std::uintmax_t size = 0;
  for (const Track& track : allTracks()) {
    const auto file = fileOf(track);
    ASSERT_TRUE(file) << nameOf(track) << ": not made yet";
    size += std::filesystem::file_size(*file);
  }
  EXPECT_LE(size, largestSoundtrack) << "bytes";
}

}  // namespace
}  // namespace soundtrack
}  // namespace mireval
