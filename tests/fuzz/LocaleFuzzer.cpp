// The environment's variables for languages.
#include "FuzzInput.h"
#include "platform/linux/settings/LocaleVariables.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array names{"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
  mireval::FuzzInput input(data, size);
  std::array<std::string, names.size()> values;
  for (std::string& value : values) {
    value = input.text();
  }
  const mireval::LocaleVariables variables([&](const char* wanted) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (std::strcmp(names.at(i), wanted) == 0) {
        return QByteArray::fromStdString(values.at(i));
      }
    }
    std::abort();
  });
  const QStringList available{QStringLiteral("en"), QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant"),
                              QStringLiteral("ja")};
  variables.preferredLanguages();
  variables.currentLocaleIdentifier();
  for (const QString& localization : variables.preferredLocalizations(available)) {
    if (!available.contains(localization)) {
      std::abort();
    }
  }
  return 0;
}
