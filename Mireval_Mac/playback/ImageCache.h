#pragma once

#include "playback/CoverImage.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

namespace mireval {

/// Decoded covers by name. There is no limit to their number or size; instead a cover goes when nobody has
/// asked for it for a while, or when the system is short of memory. Callable on any thread.
class ImageCache {
 public:
  using Clock = std::chrono::steady_clock;

  /// How long a cover is kept that nobody asks for: at least this long, at most until the next look-up.
  static constexpr std::chrono::minutes keptUnused{5};

  explicit ImageCache(std::function<Clock::time_point()> now = Clock::now);
  ImageCache(const ImageCache&) = delete;
  ImageCache& operator=(const ImageCache&) = delete;

  /// The cover stored under the name, or nothing. Lets go of what went unused for too long.
  std::optional<CoverImage> image(QString name);

  /// Stores the cover under the name, in the place of an earlier one.
  void setImage(const QString& name, const CoverImage& image);

  /// Lets go of everything but the cover last asked for, which is about to be asked for again.
  void releaseUnused();

  /// Lets go of everything.
  void removeAll();

 private:
  struct Entry {
    CoverImage image;
    Clock::time_point lastUse;
  };

  const std::function<Clock::time_point()> m_now;

  std::mutex m_mutex;
  // Guarded by m_mutex.
  QHash<QString, Entry> m_entries;
  QString m_lastAskedFor;
};

}  // namespace mireval
