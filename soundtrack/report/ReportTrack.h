#pragma once

#include "library/Track.h"
#include "measures/Figures.h"
#include "report/TrackSource.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace mireval::soundtrack {

/// One piece of the catalogue in the report.
struct ReportTrack {
  Track track;
  /// Absent when the source cannot be read.
  std::optional<TrackSource> source;
  /// Where the page finds them, relative to itself; empty when the piece has none.
  QString audio;
  QString picture;
  double seconds = 0;
  /// The size of the audio file.
  std::uintmax_t bytes = 0;
  std::vector<Figure> figures;
  /// The title of the piece of the same mood that it is most like; empty when there is none to compare with.
  QString nearest;
  /// Why something is missing; empty when nothing is.
  QString problem;
};

}  // namespace mireval::soundtrack
