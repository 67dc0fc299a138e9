#pragma once

#include "platform/linux/audio/AudioDecoder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace mireval {

/// A decoder that remembers its last seconds, so that frames which were handed to the sound server but not
/// yet heard can be had again: at another volume, or for another stream. May be used on any thread, by one
/// thread at a time.
class FrameHistory {
 public:
  /// Remembers at least `remembered` seconds.
  FrameHistory(std::unique_ptr<AudioDecoder> decoder, double rememberedSeconds);

  const AudioDecoder& decoder() const { return *m_decoder; }

  /// Copies or decodes interleaved frames from the frame number `position` on. `position` must lie between
  /// `oldestFrame()` and `decodedFrames()`. Returns the number of frames: 0 only at the end of the file.
  std::size_t read(std::uint64_t position, std::span<float> samples);

  /// The first frame that is still remembered.
  std::uint64_t oldestFrame() const;

  /// How many frames have been decoded so far: the length of the track once `read` has returned 0.
  std::uint64_t decodedFrames() const { return m_decodedFrames; }

 private:
  void remember(std::span<const float> samples);

  std::unique_ptr<AudioDecoder> m_decoder;
  std::size_t m_capacityFrames;
  std::unique_ptr<float[]> m_ring;
  std::uint64_t m_decodedFrames = 0;
};

}  // namespace mireval
