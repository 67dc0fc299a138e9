#pragma once

#include "library/Track.h"

#include <QLatin1StringView>
#include <QList>

#include <map>
#include <span>

namespace mireval {

/// The tracks of each mood, in catalogue order.
using Catalogue = std::map<Mood, QList<Track>>;

/// Pairs the n-th title with the n-th detail, n = 1, 2, ..., until the shorter table is exhausted. Each
/// track gets a fresh `id` and the resource name "<mood>-<n>", without leading zeros.
QList<Track> makeTracks(std::span<const QLatin1StringView> titles, std::span<const QLatin1StringView> details,
                        Mood mood);

/// The tracks that ship with the application, sixteen for each mood. The first caller, on any thread, builds
/// them; from then on they are read-only, so that each `id` stays the same for the run.
const Catalogue& catalogue();

}  // namespace mireval
