#pragma once

#include "library/Mood.h"

#include <QByteArray>
#include <QColorSpace>
#include <QHash>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>

namespace mireval {

class ImageDecoder;
class ResourceBundle;

/// The covers of the application: each is decoded once, and again only after its cache has let go of it.
class CoverImages {
 public:
  /// A decoded cover. Its pixels are kept packed, because a desktop that loads the file never asks for them.
  /// Copies share the pixels. Callable on any thread.
  class Cover {
   public:
    /// The image must not be null.
    Cover(const QImage& image, std::filesystem::path file);

    QSize size() const { return m_size; }

    /// The image with the pixels and colours that it was made from; a null image when memory does not
    /// suffice. Takes a few milliseconds.
    QImage image() const;

    /// The file that the image was read from.
    const std::filesystem::path& file() const { return m_file; }

   private:
    QByteArray m_packedPixels;
    QSize m_size;
    qsizetype m_bytesPerLine;
    QImage::Format m_format;
    QList<QRgb> m_colorTable;
    QColorSpace m_colorSpace;
    std::filesystem::path m_file;
  };

  /// Covers by name, without a limit to their number or size. Callable on any thread.
  class Cache {
   public:
    /// The cover stored under the name, or nothing.
    std::optional<Cover> cover(QString name);

    /// Stores the cover under the name, in the place of an earlier one.
    void setCover(const QString& name, const Cover& cover);

    /// Lets go of everything but the cover last asked for, which is about to be asked for again. For a system
    /// that is short of memory.
    void releaseUnused();

    /// Lets go of everything.
    void removeAll();

   private:
    std::mutex m_mutex;
    // Guarded by m_mutex.
    QHash<QString, Cover> m_covers;
    QString m_lastAskedFor;
  };

  CoverImages(ResourceBundle& bundle, ImageDecoder& decoder) : m_bundle(bundle), m_decoder(decoder) {}

  /// The cover of a playlist position, counted from 1. Nothing if it is missing or cannot be decoded.
  std::optional<Cover> coverImage(Mood mood, std::int64_t position) const;

  /// The covers decoded so far, by cover image name: one cache for the process, made on first use. Callable
  /// on any thread.
  static Cache& coverImageCache();

 private:
  QImage downsampledImage(const std::filesystem::path& file, double maxPixelSize) const;

  ResourceBundle& m_bundle;
  ImageDecoder& m_decoder;
};

}  // namespace mireval
