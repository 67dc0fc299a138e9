#pragma once

#include <filesystem>

namespace mireval {

/// Where a file or folder that belongs to the running program is: `name` beside the executable if it exists
/// (a build tree), else `installed`, a path relative to the executable's folder (an installed tree). Needs
/// the application object.
std::filesystem::path applicationFile(const std::filesystem::path& name,
                                      const std::filesystem::path& installed);

}  // namespace mireval
