#pragma once

#include "measures/Chroma.h"
#include "measures/Recording.h"

#include <array>
#include <cstddef>

namespace mireval::soundtrack {

/// What distinguishes a piece from others: its timbre and harmony, as a whole and over sixteen equal parts.
///
/// Timbre is the level in 32 mel bands (40..12000 Hz, spectra of 4096 samples every 2048) in dB, with the
/// sound brought to a mean power of 1 and a floor of 0 dB.
struct Fingerprint {
  static constexpr std::size_t bandCount = 32;
  static constexpr std::size_t partCount = 16;
  using Bands = std::array<double, bandCount>;

  Bands meanBands{};
  std::array<Bands, partCount> bandsOfParts{};
  std::array<Chroma::Frame, partCount> chromaOfParts{};
  /// `Chroma::tonalShare`.
  double tonalShare = 0;
  /// The mean `difference` in chroma from one step of four seconds to the next, 0..1. A drone has 0.04,
  /// chords 0.2 and more. Noise has much of it too, so it tells only together with the tonal share.
  double harmonicMovement = 0;
  /// How much the parts differ: the root mean square of their bands about the mean of the parts, dB. A loop
  /// reaches 1.5.
  double form = 0;

  static Fingerprint of(const Recording& recording);
};

/// How unlike two pieces are: the difference in mean timbre (root mean square over the bands, dB) plus twenty
/// times the mean difference in chroma between their parts, at the transposition that makes it least. The
/// same piece in another key and tempo stays below 5, different pieces reach 7 and more.
double distance(const Fingerprint& a, const Fingerprint& b);

}  // namespace mireval::soundtrack
