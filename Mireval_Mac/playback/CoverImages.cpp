#include "playback/CoverImages.h"

#include "platform/ImageDecoder.h"
#include "platform/ResourceBundle.h"
#include "playback/ImageCache.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

ImageCache& CoverImages::coverImageCache() {
  static ImageCache cache;
  return cache;
}

std::optional<CoverImage> CoverImages::coverImage(Mood mood, std::int64_t position) const {
  const QString name = coverImageName(mood, position);
  if (auto cached = coverImageCache().image(name)) {
    return cached;
  }
  const auto file = m_bundle.urlForResource(name, u"png"_s, u"CoverImages"_s);
  if (!file) {
    return std::nullopt;
  }
  constexpr double maxPixelSize = 1600;
  QImage image = downsampledImage(*file, maxPixelSize);
  if (image.isNull()) {
    image = m_decoder.image(*file);
  }
  if (image.isNull()) {
    return std::nullopt;
  }
  const CoverImage cover{.image = std::move(image), .file = *file};
  coverImageCache().setImage(name, cover);
  return cover;
}

QImage CoverImages::downsampledImage(const std::filesystem::path& file, double maxPixelSize) const {
  return m_decoder.thumbnail(file, maxPixelSize);
}

}  // namespace mireval
