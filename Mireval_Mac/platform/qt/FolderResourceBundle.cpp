#include "platform/qt/FolderResourceBundle.h"

#include "platform/qt/ApplicationFile.h"

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

FolderResourceBundle FolderResourceBundle::forApplication() {
  const fs::path named = qgetenv("MIREVAL_RESOURCES").toStdString();
  return FolderResourceBundle(named.empty() ? applicationFile("resources", "../share/mireval") : named);
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
