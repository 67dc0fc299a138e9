#pragma once

#include <QImage>
#include <QSize>

#include <filesystem>
#include <functional>

namespace mireval {

/// A picture that the desktop's media controls may show.
struct MediaItemArtwork {
  /// The largest useful size, in pixels.
  QSize boundsSize;
  /// Returns the picture for a size in pixels; its own size may differ. Takes a few milliseconds, since the
  /// picture may have to be unpacked. Callable on any thread.
  std::function<QImage(QSize size)> requestHandler;
  /// The file of the picture, for desktops that load it themselves.
  std::filesystem::path file;
};

}  // namespace mireval
