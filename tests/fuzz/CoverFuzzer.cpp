// A picture file, in any format that Qt reads here.
#include "FuzzApplication.h"
#include "MemoryFile.h"
#include "platform/qt/QtImageDecoder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mireval::FuzzApplication::require();
  constexpr int side = 64;
  const mireval::MemoryFile file(data, size);
  // A decoder of its own: another one remembers that a file has failed.
  const QImage image = mireval::QtImageDecoder().thumbnail(file.path(), side);
  if (std::max(image.width(), image.height()) > side) {
    std::abort();
  }
  return 0;
}
