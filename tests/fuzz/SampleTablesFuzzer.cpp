// The tables of an MPEG-4 file, which are read before FFmpeg opens it.
#include "MemoryFile.h"
#include "platform/linux/audio/Mp4SampleTables.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const mireval::MemoryFile file(data, size);
  mireval::Mp4SampleTables::areAffordable(file.path());
  return 0;
}
