#pragma once

#include <QImage>

#include <filesystem>

namespace mireval {

/// A decoded cover, and the file that it was read from.
struct CoverImage {
  QImage image;
  std::filesystem::path file;
};

}  // namespace mireval
