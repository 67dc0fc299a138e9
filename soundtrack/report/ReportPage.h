#pragma once

#include "report/ReportTrack.h"

#include <QString>

#include <span>

namespace mireval::soundtrack {

/// An HTML page that shows the tracks: a table of all figures, then mood by mood each track with its picture,
/// figures and player, in the order in which they are given. Needs neither network nor script; with a script,
/// a player that starts stops the others.
QString reportPage(std::span<const ReportTrack> tracks);

}  // namespace mireval::soundtrack
