// The preference file: reading a value, and storing one beside what the file already holds.
#include "FuzzInput.h"
#include "platform/qt/IniUserDefaults.h"

#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

void write(const std::filesystem::path& file, std::span<const std::uint8_t> bytes) {
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
  mireval::FuzzInput input(data, size);
  const QString value = QString::fromStdString(input.text());
  const std::filesystem::path file = folder.filePath(QStringLiteral("mireval.conf")).toStdString();
  write(file, input.rest());

  mireval::IniUserDefaults defaults(file);
  const QString key = QStringLiteral("app.language.option");
  const QString otherKey = QStringLiteral("other");
  const auto before = defaults.string(key);
  const auto otherBefore = defaults.string(otherKey);
  defaults.set(key, value);
  const auto after = defaults.string(key);
  const bool isStored = after == value;
  const bool isUnchanged = after == before;
  if ((!isStored && !isUnchanged) || defaults.string(otherKey) != otherBefore) {
    std::abort();
  }
  return 0;
}
