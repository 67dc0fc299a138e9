#pragma once

#include <QImage>

#include <filesystem>

namespace mireval {

/// Decodes image files at once and completely; the file is not needed afterwards. Callable on any thread.
/// Takes tens of milliseconds for a large file.
class ImageDecoder {
 public:
  virtual ~ImageDecoder() = default;

  /// The file's first picture, upright, its longer side at most `maxPixelSize` pixels. Smaller pictures keep
  /// their size, larger ones their proportions. A null image if the file is not a picture or `maxPixelSize`
  /// is below 1.
  virtual QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) = 0;

  /// The file's first picture, upright and in its own size; a null image if the file is not a picture.
  virtual QImage image(const std::filesystem::path& file) = 0;
};

}  // namespace mireval
