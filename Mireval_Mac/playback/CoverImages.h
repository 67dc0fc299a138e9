#pragma once

#include "library/Mood.h"
#include "playback/CoverImage.h"

#include <QImage>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace mireval {

class ImageCache;
class ImageDecoder;
class ResourceBundle;

/// The covers of the application: each is decoded once, and again only after its cache has let go of it.
class CoverImages {
 public:
  CoverImages(ResourceBundle& bundle, ImageDecoder& decoder) : m_bundle(bundle), m_decoder(decoder) {}

  /// The cover of a playlist position, counted from 1. Nothing if it is missing or cannot be decoded.
  std::optional<CoverImage> coverImage(Mood mood, std::int64_t position) const;

  /// The covers decoded so far, by cover image name: one cache for the process, made on first use. Callable
  /// on any thread.
  static ImageCache& coverImageCache();

 private:
  QImage downsampledImage(const std::filesystem::path& file, double maxPixelSize) const;

  ResourceBundle& m_bundle;
  ImageDecoder& m_decoder;
};

}  // namespace mireval
