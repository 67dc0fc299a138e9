#pragma once

#include <QImage>

#include <filesystem>

namespace mireval {

/// Turns image files into pictures. A picture comes back whole: nothing of its file is needed afterwards.
/// Callable on any thread; takes tens of milliseconds for a large file.
class ImageDecoder {
 public:
  virtual ~ImageDecoder() = default;

  /// The file's first picture, upright, its longer side at most `maxPixelSize` pixels: smaller pictures keep
  /// their size, larger ones their proportions. A null image when the file is not a picture or when not even
  /// one pixel is allowed.
  virtual QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) = 0;

  /// The file's first picture, upright and in its own size; a null image when the file is not a picture.
  virtual QImage image(const std::filesystem::path& file) = 0;
};

}  // namespace mireval
