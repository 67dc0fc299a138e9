#pragma once

#include "platform/linux/audio/AudioDecoder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace mireval {

/// A decoder that remembers its last seconds. Frames that the sound server got but did not play can be read
/// again, at another volume or for another stream. May be used on any thread, by one at a time.
class FrameHistory {
 public:
  /// Remembers at least `rememberedSeconds`.
  FrameHistory(std::unique_ptr<AudioDecoder> decoder, double rememberedSeconds);

  const AudioDecoder& decoder() const { return *m_decoder; }

  /// Interleaved frames from the frame number `position` on, at most `most` (not 0) and maybe fewer; empty
  /// only at the end of the file. `position` must lie between `oldestFrame()` and `decodedFrames()`; at
  /// `decodedFrames()` new frames are decoded. Valid until the next call.
  std::span<const float> read(std::uint64_t position, std::size_t most);

  /// The first frame that is still remembered.
  std::uint64_t oldestFrame() const;

  /// How many frames have been decoded so far: the length of the track once `read` has returned nothing.
  std::uint64_t decodedFrames() const { return m_decodedFrames; }

 private:
  std::unique_ptr<AudioDecoder> m_decoder;
  std::size_t m_capacityFrames;
  std::unique_ptr<float[]> m_ring;
  std::uint64_t m_decodedFrames = 0;
};

}  // namespace mireval
