#include "platform/qt/QtImageDecoder.h"

#include <QFile>
#include <QImageReader>
#include <QPixelFormat>

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace mireval {
namespace {

bool fitsAllocationLimit(const QImageReader& reader) {
  constexpr qint64 bitsPerMegabyte = 8LL << 20;
  const qint64 limit = QImageReader::allocationLimit();
  const QSize size = reader.size();
  // Like Qt, assume at least 32 bits: most pictures are decoded to that.
  const int bitsPerPixel = std::max<int>(QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel(), 32);
  return limit <= 0 || qint64{size.width()} * size.height() <= limit * bitsPerMegabyte / bitsPerPixel;
}

/// `size` reduced to `maxPixelSize` on the longer side. The limit is the same for both sides, so rotation
/// does not matter.
QSize fittedSize(QSize size, double maxPixelSize) {
  const int longer = std::max(size.width(), size.height());
  if (longer <= maxPixelSize) {
    return size;
  }
  const double limit = std::floor(maxPixelSize);
  const auto fitted = [&](int side) {
    return std::max(1, static_cast<int>(std::round(side * (limit / longer))));
  };
  return {fitted(size.width()), fitted(size.height())};
}

}  // namespace

QImage QtImageDecoder::thumbnail(const std::filesystem::path& file, double maxPixelSize) {
  // A comparison with NaN is false.
  return maxPixelSize >= 1 ? decode(file, maxPixelSize) : QImage();
}

QImage QtImageDecoder::image(const std::filesystem::path& file) {
  return decode(file, std::numeric_limits<double>::infinity());
}

QImage QtImageDecoder::decode(const std::filesystem::path& file, double maxPixelSize) {
  const std::optional<Version> version = versionOf(file);
  if (!version || hasFailed(*version)) {
    return {};
  }
  QImageReader reader(QFile::decodeName(file.c_str()));
  reader.setAutoTransform(true);
  QImage image;
  if (reader.canRead() && !reader.size().isEmpty()) {
    // Qt refuses too large pictures itself, but with a warning, and only after scaling formats that it reads
    // line by line.
    if (!fitsAllocationLimit(reader)) {
      return {};
    }
    const QSize fitted = fittedSize(reader.size(), maxPixelSize);
    if (fitted != reader.size()) {
      reader.setScaledSize(fitted);
    }
    image = reader.read();
    // A GIF can be larger than its first frame, whose size Qt states and scales.
    if (const QSize size = fittedSize(image.size(), maxPixelSize); size != image.size()) {
      image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
  }
  // A file that could not be opened may be good.
  const bool opened =
      reader.error() != QImageReader::FileNotFoundError && reader.error() != QImageReader::DeviceError;
  if (image.isNull() && opened) {
    rememberFailure(*version);
  }
  return image;
}

/// Nothing if it is no regular file: opening a pipe would wait for a writer.
std::optional<QtImageDecoder::Version> QtImageDecoder::versionOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
  return Version{.device = status.st_dev,
                 .inode = status.st_ino,
                 .size = status.st_size,
                 .writtenNanoseconds = status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec,
                 .changedNanoseconds = status.st_ctim.tv_sec * nanosecondsPerSecond + status.st_ctim.tv_nsec};
}

bool QtImageDecoder::hasFailed(const Version& version) const {
  const std::lock_guard lock(m_mutex);
  return std::ranges::find(m_failed, version) != m_failed.end();
}

void QtImageDecoder::rememberFailure(const Version& version) {
  const std::lock_guard lock(m_mutex);
  m_failed.at(m_nextFailed) = version;
  m_nextFailed = (m_nextFailed + 1) % m_failed.size();
}

}  // namespace mireval
