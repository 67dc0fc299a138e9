#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace mireval::soundtrack {

/// The short-time power spectra of a sound: |FFT|^2 of frames of `size` samples, taken every `hop` samples
/// under a symmetric Hann window, not normalised (a sine of amplitude 1 in the middle of a bin reaches about
/// size^2 / 16). Only whole frames are taken, so a sound shorter than `size` has none.
class PowerSpectra {
 public:
  /// `size` must be even, `hop` positive. May be called on several threads at once.
  PowerSpectra(std::span<const float> samples, std::size_t size, std::size_t hop);

  std::size_t frameCount() const { return m_frameCount; }

  /// size / 2 + 1: from 0 Hz to half the sample rate.
  std::size_t binCount() const { return m_binCount; }

  /// The power in each bin of a frame.
  std::span<const float> frame(std::size_t index) const {
    return std::span(m_power).subspan(index * m_binCount, m_binCount);
  }

 private:
  std::size_t m_frameCount;
  std::size_t m_binCount;
  std::vector<float> m_power;
};

}  // namespace mireval::soundtrack
