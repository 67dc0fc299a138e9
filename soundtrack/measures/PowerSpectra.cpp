#include "measures/PowerSpectra.h"

#include <fftw3.h>

#include <cmath>
#include <memory>
#include <mutex>
#include <numbers>

namespace mireval::soundtrack {
namespace {

struct FreeBuffer {
  void operator()(void* buffer) const { fftwf_free(buffer); }
};

/// Guards making and freeing plans, which share tables. Only executing them is safe on several threads at
/// once.
std::mutex plansMutex;

struct DestroyPlan {
  void operator()(fftwf_plan_s* plan) const {
    const std::lock_guard lock(plansMutex);
    fftwf_destroy_plan(plan);
  }
};

std::unique_ptr<fftwf_plan_s, DestroyPlan> makePlan(std::size_t size, float* input, fftwf_complex* output) {
  const std::lock_guard lock(plansMutex);
  return std::unique_ptr<fftwf_plan_s, DestroyPlan>(
      fftwf_plan_dft_r2c_1d(static_cast<int>(size), input, output, FFTW_ESTIMATE));
}

std::vector<float> hannWindow(std::size_t size) {
  std::vector<float> window(size);
  for (std::size_t i = 0; i < size; ++i) {
    const double turn = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(size - 1);
    window[i] = static_cast<float>(0.5 - 0.5 * std::cos(turn));
  }
  return window;
}

}  // namespace

PowerSpectra::PowerSpectra(std::span<const float> samples, std::size_t size, std::size_t hop)
    : m_frameCount(samples.size() < size ? 0 : 1 + (samples.size() - size) / hop),
      m_binCount(size / 2 + 1),
      m_power(m_frameCount * m_binCount) {
  const std::vector<float> window = hannWindow(size);
  const std::unique_ptr<float, FreeBuffer> input(fftwf_alloc_real(size));
  const std::unique_ptr<fftwf_complex, FreeBuffer> output(fftwf_alloc_complex(m_binCount));
  const auto plan = makePlan(size, input.get(), output.get());
  auto power = m_power.begin();
  for (std::size_t frame = 0; frame < m_frameCount; ++frame) {
    const std::span<const float> part = samples.subspan(frame * hop, size);
    for (std::size_t i = 0; i < size; ++i) {
      input.get()[i] = part[i] * window[i];
    }
    fftwf_execute(plan.get());
    for (std::size_t bin = 0; bin < m_binCount; ++bin) {
      const float* const value = output.get()[bin];
      *power++ = value[0] * value[0] + value[1] * value[1];
    }
  }
}

}  // namespace mireval::soundtrack
