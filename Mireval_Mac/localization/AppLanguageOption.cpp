#include "localization/AppLanguageOption.h"

#include "localization/EnumeratorNames.h"

namespace mireval {

QString rawValue(AppLanguageOption option) {
  return enumeratorName(option);
}

std::optional<AppLanguageOption> appLanguageOptionFromRawValue(QStringView text) {
  return enumeratorNamed<AppLanguageOption>(text);
}

QString id(AppLanguageOption option) {
  return rawValue(option);
}

}  // namespace mireval
