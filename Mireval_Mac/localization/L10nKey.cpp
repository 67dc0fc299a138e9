#include "localization/L10nKey.h"

#include "localization/EnumeratorNames.h"

namespace mireval {

QString rawValue(L10nKey key) {
  return enumeratorName(key);
}

std::optional<L10nKey> l10nKeyFromRawValue(QStringView text) {
  return enumeratorNamed<L10nKey>(text);
}

}  // namespace mireval
