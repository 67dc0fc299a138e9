#pragma once

#include "platform/UserDefaults.h"

#include <filesystem>

namespace mireval {

/// Keeps the preferences in an INI file of UTF-8 text, in its section `[General]`:
/// `app.language.option=japanese`. Keys are plain names. Nothing is cached, so changes by others are seen.
///
/// Values are plain words, which may stand in double quotes. A value that contains a quote, comma, semicolon,
/// backslash or line break is read as nothing and is not stored.
///
/// A file that is missing, unreadable, not a regular file or larger than 1 MiB holds nothing; reading creates
/// nothing. Writing creates missing folders, replaces the file in one step and keeps everything else in it.
/// A link to the file stays a link.
class IniUserDefaults final : public UserDefaults {
 public:
  explicit IniUserDefaults(std::filesystem::path file);

  /// `mireval/mireval.conf` below the user's configuration folder: XDG_CONFIG_HOME, else `~/.config`.
  static IniUserDefaults forCurrentUser();

  const std::filesystem::path& file() const { return m_file; }

  std::optional<QString> string(QStringView key) const override;

  /// Waits at most a second for another process that is writing, then gives up.
  void set(QStringView key, const QString& value) override;

 private:
  std::filesystem::path m_file;
};

}  // namespace mireval
