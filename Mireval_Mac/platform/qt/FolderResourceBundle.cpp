#include "platform/qt/FolderResourceBundle.h"

#include <QFile>

#include <system_error>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

fs::path pathOf(const QString& text) {
  return {QFile::encodeName(text).toStdString()};
}

bool isFileName(const QString& name) {
  return !name.contains(QLatin1Char('/')) && !name.contains(QChar(u'\0'));
}

}  // namespace

FolderResourceBundle::FolderResourceBundle(fs::path folder) : m_folder(std::move(folder)) {}

FolderResourceBundle FolderResourceBundle::ofApplication() {
  const QByteArray named = qgetenv("MIREVAL_RESOURCES");
  if (!named.isEmpty()) {
    return FolderResourceBundle(fs::path(named.toStdString()));
  }
  std::error_code error;
  const fs::path programFolder = fs::read_symlink("/proc/self/exe", error).parent_path();
  const fs::path besideProgram = programFolder / "resources";
  return FolderResourceBundle(fs::is_directory(besideProgram, error)
                                  ? besideProgram
                                  : programFolder.parent_path() / "share" / "mireval");
}

std::optional<fs::path> FolderResourceBundle::urlForResource(const QString& name, const QString& extension,
                                                             const QString& subdirectory) const {
  if (!isFileName(name) || !isFileName(extension)) {
    return std::nullopt;
  }
  const fs::path file = m_folder / pathOf(subdirectory) / pathOf(name + QLatin1Char('.') + extension);
  std::error_code error;
  return fs::is_regular_file(file, error) ? std::optional(file) : std::nullopt;
}

}  // namespace mireval
