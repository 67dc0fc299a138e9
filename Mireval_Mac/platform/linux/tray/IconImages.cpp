#include "platform/linux/tray/IconImages.h"

#include <QFile>
#include <QtEndian>

#include <cstdint>
#include <string>
#include <system_error>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

fs::path inTheme(const fs::path& theme, const std::string& folder, const std::string& extension) {
  return theme / "hicolor" / folder / "apps" / (IconImages::name + extension);
}

}  // namespace

IconImages::IconImages(fs::path image) : m_image(std::move(image)) {}

fs::path IconImages::themeFolder() const {
  std::error_code error;
  const fs::path folder = fs::absolute(m_image, error).parent_path();
  for (const fs::path& parent : {folder, folder.parent_path()}) {
    if (fs::is_regular_file(inTheme(parent / "icons", "scalable", ".svg"), error)) {
      return parent / "icons";
    }
  }
  return {};
}

QImage IconImages::image(int sidePixels) const {
  const fs::path theme = themeFolder();
  if (!theme.empty()) {
    const std::string side = std::to_string(sidePixels);
    QImage drawn(QFile::decodeName(inTheme(theme, side + "x" + side, ".png").c_str()));
    if (drawn.size() == QSize(sidePixels, sidePixels)) {
      return drawn;
    }
  }
  const QImage drawing(QFile::decodeName(m_image.c_str()));
  return drawing.isNull()
             ? drawing
             : drawing.scaled(sidePixels, sidePixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

const std::vector<QImage>& IconImages::pixmaps() {
  if (m_pixmaps.empty()) {
    for (const int side : {16, 22, 24, 32, 48, 64}) {
      QImage pixmap = image(side).convertToFormat(QImage::Format_ARGB32);
      if (pixmap.isNull()) {
        break;
      }
      qToBigEndian<std::uint32_t>(pixmap.constBits(), pixmap.sizeInBytes() / 4, pixmap.bits());
      m_pixmaps.push_back(std::move(pixmap));
    }
  }
  return m_pixmaps;
}

}  // namespace mireval
