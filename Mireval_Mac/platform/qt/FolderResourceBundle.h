#pragma once

#include "platform/ResourceBundle.h"

#include <filesystem>

namespace mireval {

/// Finds resources in a folder: `<folder>/<subdirectory>/<name>.<extension>`. Nothing is cached, so a file
/// that appears later is found.
class FolderResourceBundle final : public ResourceBundle {
 public:
  explicit FolderResourceBundle(std::filesystem::path folder);

  /// The bundle of the running program: the folder that the environment variable MIREVAL_RESOURCES names,
  /// else `resources` beside the executable (a build tree), else `../share/mireval` (an installed tree).
  /// Needs the application object unless the variable is set.
  static FolderResourceBundle forApplication();

  const std::filesystem::path& folder() const { return m_folder; }

  /// Finds regular files only, also behind links. Names with a path separator are never found.
  std::optional<std::filesystem::path> urlForResource(const QString& name, const QString& extension,
                                                      const QString& subdirectory) const override;

 private:
  std::filesystem::path m_folder;
};

}  // namespace mireval
