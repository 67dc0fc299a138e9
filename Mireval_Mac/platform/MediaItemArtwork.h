#pragma once

#include <QImage>
#include <QSize>

#include <filesystem>
#include <functional>

namespace mireval {

/// A picture that the desktop's media controls may show.
struct MediaItemArtwork {
  /// Largest size that is worth asking for, in pixels.
  QSize boundsSize;
  /// The picture for a size in pixels; which size comes back is up to the maker. Callable on any thread.
  std::function<QImage(QSize size)> requestHandler;
  /// Where the picture came from, for a desktop that rather loads it itself.
  std::filesystem::path file;
};

}  // namespace mireval
