#include "playback/ImageCache.h"

#include <utility>

namespace mireval {

ImageCache::ImageCache(std::function<Clock::time_point()> now) : m_now(std::move(now)) {}

std::optional<CoverImage> ImageCache::image(QString name) {
  const Clock::time_point now = m_now();
  const std::lock_guard lock(m_mutex);
  m_lastAskedFor = std::move(name);
  const auto found = m_entries.find(m_lastAskedFor);
  if (found != m_entries.end()) {
    found->lastUse = now;
  }
  m_entries.removeIf([now](const auto& entry) { return now - entry->lastUse > keptUnused; });
  const auto kept = m_entries.constFind(m_lastAskedFor);
  return kept != m_entries.constEnd() ? std::optional(kept->image) : std::nullopt;
}

void ImageCache::setImage(const QString& name, const CoverImage& image) {
  const Clock::time_point now = m_now();
  const std::lock_guard lock(m_mutex);
  m_entries.insert(name, {image, now});
}

void ImageCache::releaseUnused() {
  const std::lock_guard lock(m_mutex);
  m_entries.removeIf([this](const auto& entry) { return entry.key() != m_lastAskedFor; });
}

void ImageCache::removeAll() {
  const std::lock_guard lock(m_mutex);
  m_entries.clear();
}

}  // namespace mireval
