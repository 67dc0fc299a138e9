#include "platform/qt/ApplicationFile.h"

#include <QCoreApplication>
#include <QFile>

#include <system_error>

namespace mireval {

namespace fs = std::filesystem;

fs::path applicationFile(const fs::path& name, const fs::path& installed) {
  const fs::path folder = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  std::error_code error;
  const fs::path beside = folder / name;
  return fs::exists(beside, error) ? beside : (folder / installed).lexically_normal();
}

}  // namespace mireval
