#pragma once

#include "platform/ImageDecoder.h"

namespace mireval {

/// Decodes with Qt, whatever formats it has; the content decides, not the file's name. A picture whose pixels
/// exceed QImageReader's allocation limit is refused unread.
class QtImageDecoder final : public ImageDecoder {
 public:
  QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) override;
  QImage image(const std::filesystem::path& file) override;
};

}  // namespace mireval
