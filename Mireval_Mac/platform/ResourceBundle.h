#pragma once

#include <QString>

#include <filesystem>
#include <optional>

namespace mireval {

/// The folder of files that ship with the application. Used on the UI thread.
class ResourceBundle {
 public:
  virtual ~ResourceBundle() = default;

  /// The file `name`.`extension` in `subdirectory`, or nothing when there is none.
  virtual std::optional<std::filesystem::path> urlForResource(const QString& name, const QString& extension,
                                                              const QString& subdirectory) const = 0;
};

}  // namespace mireval
