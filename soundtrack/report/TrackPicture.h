#pragma once

#include "measures/Loudness.h"
#include "measures/Recording.h"

#include <QImage>

namespace mireval::soundtrack {

/// A piece at a glance, from its start on the left to its end on the right. From top to bottom:
/// - the spectrum, a note's height per semitone from C1 to C10, brighter is louder, high notes raised by
///   3 dB per octave; marks on the left at every C;
/// - the pitch classes, B on top and C at the bottom, relative to the strongest of each moment;
/// - the level (-42 to -10 dB) with the short-term loudness as a line.
/// Marks between these show every thirty seconds.
QImage trackPicture(const Recording& recording, const Loudness& loudness);

}  // namespace mireval::soundtrack
