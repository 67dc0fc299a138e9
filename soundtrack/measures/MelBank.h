#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace mireval::soundtrack {

/// Triangular filters, equally wide on the mel scale (2595 log10(1 + f / 700)), each reaching 1 at its centre
/// and 0 at the centres of its neighbours: the ear's bands.
class MelBank {
 public:
  /// `bands` filters between two frequencies in Hz, for spectra of `size` samples at `sampleRate`.
  MelBank(std::size_t bands, std::size_t size, int sampleRate, double lowestHz, double highestHz);

  std::size_t bandCount() const { return m_bands.size(); }

  /// The weighted power in each band in dB, 10 log10(power + floor). `decibels` has one place per band.
  void apply(std::span<const float> power, double floor, std::span<double> decibels) const;

 private:
  struct Band {
    std::size_t firstBin;
    std::vector<float> weights;
  };
  std::vector<Band> m_bands;
};

}  // namespace mireval::soundtrack
