// soundtrack_report AUDIO SOURCES OUT - measures the tracks of the catalogue in the folder AUDIO
// (<name>.m4a), reads their sources in the folder SOURCES (<name>.orc), and writes OUT/index.html with a
// picture and the sound of each.

#include "library/Catalogue.h"
#include "measures/Measurement.h"
#include "report/ReportPage.h"
#include "report/TrackPicture.h"

#include <QSaveFile>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace mireval::soundtrack {
namespace {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

struct Folders {
  fs::path audio;
  fs::path sources;
  fs::path out;
};

/// A track, and the fingerprint by which it is compared with the others.
struct Review {
  ReportTrack report;
  std::optional<Fingerprint> fingerprint;
};

/// Makes a hard link to the file, or a copy where links are not possible.
std::error_code bring(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::remove(to, error);
  fs::create_hard_link(from, to, error);
  if (error) {
    fs::copy_file(from, to, error);
  }
  return error;
}

Review review(const Track& track, const Folders& folders) {
  const std::string name = track.resourceName.value_or(QString()).toStdString();
  Review result;
  ReportTrack& report = result.report;
  report.track = track;
  report.source = TrackSource::read(folders.sources / (name + ".orc"));
  const auto addProblem = [&](const std::string& problem) {
    report.problem += (report.problem.isEmpty() ? QString() : u"; "_s) + QString::fromStdString(problem);
  };
  if (!report.source || !report.source->piece) {
    addProblem("no source with a piece line");
  }
  const fs::path file = folders.audio / (name + ".m4a");
  std::error_code error;
  if (!fs::is_regular_file(file, error)) {
    addProblem("not rendered");
    return result;
  }
  const RecordingResult loaded = Recording::load(file);
  if (!loaded.recording) {
    addProblem(loaded.error);
    return result;
  }
  const std::string audioName = name + ".m4a";
  error = bring(file, folders.out / audioName);
  if (error) {
    addProblem("its sound cannot be kept: " + error.message());
  } else {
    report.audio = QString::fromStdString(audioName);
  }
  report.bytes = fs::file_size(file, error);

  constexpr double secondsPerMinute = 60;
  const Piece piece = report.source ? report.source->piece.value_or(Piece()) : Piece();
  const double secondsPerBar = piece.tempo > 0 ? piece.beatsPerBar * secondsPerMinute / piece.tempo : 2;
  const Measurement measurement = Measurement::of(*loaded.recording, secondsPerBar);
  report.seconds = measurement.seconds;
  report.figures = figuresOf(measurement, track.mood);
  result.fingerprint = measurement.fingerprint;

  const std::string pictureName = name + ".png";
  if (trackPicture(*loaded.recording, measurement.loudness)
          .save(QString::fromStdString(folders.out / pictureName))) {
    report.picture = QString::fromStdString(pictureName);
  } else {
    addProblem("its picture cannot be written");
  }
  return result;
}

std::vector<Review> reviewAll(const Folders& folders) {
  std::vector<Track> tracks;
  for (const auto& [mood, ofMood] : catalogue()) {
    tracks.insert(tracks.end(), ofMood.begin(), ofMood.end());
  }
  std::vector<Review> reviews(tracks.size());
  std::atomic<std::size_t> next = 0;
  std::size_t done = 0;
  std::mutex progress;
  const auto work = [&] {
    for (std::size_t index = next++; index < tracks.size(); index = next++) {
      reviews[index] = review(tracks[index], folders);
      const std::lock_guard lock(progress);
      std::printf("\rreport: %zu of %zu tracks", ++done, tracks.size());
      std::fflush(stdout);
    }
  };
  {
    // Each thread holds a few hundred megabytes of samples and spectra.
    const std::array<std::jthread, 2> workers{std::jthread(work), std::jthread(work)};
  }
  std::printf("\n");
  return reviews;
}

void findNearest(std::vector<Review>& reviews) {
  for (Review& review : reviews) {
    double least = std::numeric_limits<double>::infinity();
    for (const Review& other : reviews) {
      if (&other == &review || other.report.track.mood != review.report.track.mood || !review.fingerprint ||
          !other.fingerprint) {
        continue;
      }
      if (const double found = distance(*review.fingerprint, *other.fingerprint); found < least) {
        least = found;
        review.report.nearest = other.report.track.title;
      }
    }
    if (review.fingerprint) {
      review.report.figures.push_back({"distance to the nearest", "", least, distanceWithinAMood});
    }
  }
}

int run(const Folders& folders) {
  std::error_code error;
  fs::create_directories(folders.out, error);
  if (error) {
    std::fprintf(stderr, "report: %s: %s\n", folders.out.c_str(), error.message().c_str());
    return 1;
  }
  std::vector<Review> reviews = reviewAll(folders);
  findNearest(reviews);
  std::vector<ReportTrack> tracks;
  tracks.reserve(reviews.size());
  for (Review& review : reviews) {
    tracks.push_back(std::move(review.report));
  }
  const fs::path page = folders.out / "index.html";
  QSaveFile file(QString::fromStdString(page));
  const QByteArray html = reportPage(tracks).toUtf8();
  if (!file.open(QIODevice::WriteOnly) || file.write(html) != html.size() || !file.commit()) {
    std::fprintf(stderr, "report: %s: %s\n", page.c_str(), qPrintable(file.errorString()));
    return 1;
  }
  std::printf("report: %s\n", page.c_str());
  return 0;
}

}  // namespace
}  // namespace mireval::soundtrack

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: soundtrack_report AUDIO SOURCES OUT\n");
    return 2;
  }
  return mireval::soundtrack::run({argv[1], argv[2], argv[3]});
}
