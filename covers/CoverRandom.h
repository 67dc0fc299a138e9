#pragma once

#include <cstdint>
#include <random>

namespace mireval {

/// Numbers that are the same on every machine and in every build, unlike those of the standard distributions.
class CoverRandom {
 public:
  explicit CoverRandom(std::uint32_t seed) : m_engine(seed) {}

  /// Uniform in [`from`, `to`).
  double between(double from, double to) {
    return from + (to - from) * (static_cast<double>(m_engine()) / 4294967296.0);
  }

 private:
  std::mt19937 m_engine;
};

}  // namespace mireval
