#pragma once

#include "platform/ImageDecoder.h"

namespace mireval {

/// Decodes every format that Qt knows, by the file's content, not its name. Refuses pictures beyond
/// QImageReader's allocation limit before it decodes them.
class QtImageDecoder final : public ImageDecoder {
 public:
  QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) override;
  QImage image(const std::filesystem::path& file) override;
};

}  // namespace mireval
