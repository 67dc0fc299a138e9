#include "playback/CoverImages.h"

#include "platform/ImageDecoder.h"
#include "platform/ResourceBundle.h"

#include <memory>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

QByteArray pack(const QImage& image) {
  // Level 1 takes a third of the default level's time, for a third more bytes.
  QByteArray packed = qCompress(image.constBits(), image.sizeInBytes(), 1);
  // The array has the capacity of the unpacked pixels.
  packed.squeeze();
  return packed;
}

}  // namespace

CoverImages::Cover::Cover(const QImage& image, std::filesystem::path file)
    : m_packedPixels(pack(image)),
      m_size(image.size()),
      m_bytesPerLine(image.bytesPerLine()),
      m_format(image.format()),
      m_colorTable(image.colorTable()),
      m_colorSpace(image.colorSpace()),
      m_file(std::move(file)) {}

QImage CoverImages::Cover::image() const {
  auto pixels = std::make_unique<QByteArray>(qUncompress(m_packedPixels));
  if (pixels->size() != m_bytesPerLine * m_size.height()) {
    return {};
  }
  auto* const bits = reinterpret_cast<uchar*>(pixels->data());
  const auto deletePixels = [](void* array) { delete static_cast<QByteArray*>(array); };
  QImage image(bits, m_size.width(), m_size.height(), m_bytesPerLine, m_format, deletePixels,
               pixels.release());
  image.setColorTable(m_colorTable);
  image.setColorSpace(m_colorSpace);
  return image;
}

std::optional<CoverImages::Cover> CoverImages::Cache::cover(QString name) {
  const std::lock_guard lock(m_mutex);
  m_lastAskedFor = std::move(name);
  const auto found = m_covers.constFind(m_lastAskedFor);
  return found != m_covers.constEnd() ? std::optional(*found) : std::nullopt;
}

void CoverImages::Cache::setCover(const QString& name, const Cover& cover) {
  const std::lock_guard lock(m_mutex);
  m_covers.insert(name, cover);
}

void CoverImages::Cache::releaseUnused() {
  const std::lock_guard lock(m_mutex);
  m_covers.removeIf([this](const auto& entry) { return entry.key() != m_lastAskedFor; });
}

void CoverImages::Cache::removeAll() {
  const std::lock_guard lock(m_mutex);
  m_covers.clear();
}

CoverImages::Cache& CoverImages::coverImageCache() {
  static Cache cache;
  return cache;
}

std::optional<CoverImages::Cover> CoverImages::coverImage(Mood mood, std::int64_t position) const {
  const QString name = coverImageName(mood, position);
  if (auto cached = coverImageCache().cover(name)) {
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
  const Cover cover(image, *file);
  coverImageCache().setCover(name, cover);
  return cover;
}

QImage CoverImages::downsampledImage(const std::filesystem::path& file, double maxPixelSize) const {
  return m_decoder.thumbnail(file, maxPixelSize);
}

}  // namespace mireval
