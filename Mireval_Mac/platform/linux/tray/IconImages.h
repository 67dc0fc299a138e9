#pragma once

#include <QImage>

#include <filesystem>

namespace mireval {

/// The application's icon in the sizes that trays ask for. Nothing is kept: files are read at each call.
class IconImages final {
 public:
  /// The name of the icon in the icon theme.
  static constexpr const char* name = "mireval";

  /// `image` is the icon's file. The folder `icons` beside it (a build tree), or beside its folder (an
  /// installed tree), may be an icon theme that has the icon by name.
  explicit IconImages(std::filesystem::path image);

  /// The absolute path of the theme's folder; empty if there is none.
  std::filesystem::path themeFolder() const;

  /// A picture that fits the square: the theme's own for this size, else the image, scaled. Null if neither
  /// can be read.
  QImage image(int sidePixels) const;

 private:
  std::filesystem::path m_image;
};

}  // namespace mireval
