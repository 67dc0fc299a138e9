#pragma once

#include "platform/UserDefaults.h"

#include <filesystem>

namespace mireval {

/// Keeps the preferences in an INI file of UTF-8 text, in its section `[General]`:
/// `app.language.option=japanese`. Keys are plain names. Nothing is cached: what somebody else writes is read
/// the next time.
///
/// A value that could be misread is in quotes: `"with \"quotes\", commas and\nlines"`. One without, but with
/// a quote, comma, semicolon or backslash in it, is no text.
///
/// A file that is not there, that cannot be read, that is no regular file or is larger than 1 MiB holds
/// nothing; reading makes nothing. Writing makes the folders that are missing, replaces the file in one step,
/// and keeps all else that is in it. A link to the file stays a link.
class IniUserDefaults final : public UserDefaults {
 public:
  explicit IniUserDefaults(std::filesystem::path file);

  /// In `mireval/mireval.conf` below the user's configuration folder: XDG_CONFIG_HOME, else `~/.config`.
  static IniUserDefaults ofUser();

  const std::filesystem::path& file() const { return m_file; }

  std::optional<QString> string(QStringView key) const override;

  /// Waits at most a second for another process that is writing, and then gives up.
  void set(QStringView key, const QString& value) override;

 private:
  std::filesystem::path m_file;
};

}  // namespace mireval
