#pragma once

#include "platform/ImageDecoder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>

namespace mireval {

/// Decodes every format that Qt knows, by the file's content, not its name. Refuses pictures beyond
/// QImageReader's allocation limit before it decodes them. A file that could not be decoded is not decoded
/// again until it changes.
class QtImageDecoder final : public ImageDecoder {
 public:
  QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) override;
  QImage image(const std::filesystem::path& file) override;

 private:
  /// Differs after a file was written or replaced.
  struct Version {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t writtenNanoseconds = 0;
    std::int64_t changedNanoseconds = 0;

    bool operator==(const Version&) const = default;
  };

  static std::optional<Version> versionOf(const std::filesystem::path& file);
  bool hasFailed(const Version& version) const;
  void rememberFailure(const Version& version);
  QImage decode(const std::filesystem::path& file, double maxPixelSize);

  mutable std::mutex m_mutex;
  /// The last files that failed; the oldest is overwritten.
  std::array<Version, 32> m_failed;
  std::size_t m_nextFailed = 0;
};

}  // namespace mireval
