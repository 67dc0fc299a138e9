#pragma once

#include <QImage>

#include <filesystem>
#include <vector>

namespace mireval {

/// The application's icon in the sizes that trays ask for.
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
  /// can be read. The files are read at each call.
  QImage image(int sidePixels) const;

  /// The pictures in all sizes that status notifier hosts use, with the bytes of each pixel in the order
  /// alpha, red, green, blue. Made once, since some hosts ask many times a second; empty while the image
  /// cannot be read.
  const std::vector<QImage>& pixmaps();

 private:
  std::filesystem::path m_image;
  std::vector<QImage> m_pixmaps;
};

}  // namespace mireval
