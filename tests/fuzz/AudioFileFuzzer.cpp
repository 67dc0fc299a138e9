// An audio file, as the player opens it and plays it to the end.
#include "MemoryFile.h"
#include "platform/linux/audio/AudioDecoder.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const mireval::MemoryFile file(data, size);
  const auto decoder = mireval::AudioDecoder::open(file.path());
  if (!decoder) {
    return 0;
  }
  // Some twenty seconds of sound, since a small file can claim hours of it.
  constexpr int mostReads = 256;
  std::array<float, 8192> samples{};
  constexpr std::size_t frames = samples.size() / mireval::AudioDecoder::channelCount;
  for (int i = 0; i < mostReads && (*decoder)->read(samples) == frames; ++i) {
  }
  if ((*decoder)->sampleRate() <= 0 || !std::isfinite((*decoder)->durationSeconds())) {
    std::abort();
  }
  return 0;
}
