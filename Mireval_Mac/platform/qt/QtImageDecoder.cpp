#include "platform/qt/QtImageDecoder.h"

#include <QFile>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>
#include <cmath>
#include <system_error>

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

/// Opens the file for reading; false if it is not a picture or too large.
bool open(QImageReader& reader, const std::filesystem::path& file) {
  std::error_code error;
  // Opening a pipe would wait for a writer.
  if (!std::filesystem::is_regular_file(file, error)) {
    return false;
  }
  reader.setFileName(QFile::decodeName(file.c_str()));
  reader.setAutoTransform(true);
  // Qt refuses too large pictures itself, but with a warning, and only after scaling formats that it reads
  // line by line.
  return reader.canRead() && !reader.size().isEmpty() && fitsAllocationLimit(reader);
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
  QImageReader reader;
  // The negation also rejects NaN.
  if (!(maxPixelSize >= 1) || !open(reader, file)) {
    return {};
  }
  const QSize fitted = fittedSize(reader.size(), maxPixelSize);
  if (fitted != reader.size()) {
    reader.setScaledSize(fitted);
  }
  return reader.read();
}

QImage QtImageDecoder::image(const std::filesystem::path& file) {
  QImageReader reader;
  return open(reader, file) ? reader.read() : QImage();
}

}  // namespace mireval
