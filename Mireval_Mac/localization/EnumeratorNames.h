#pragma once

#include <QMetaEnum>
#include <QString>

#include <optional>

namespace mireval {

/// The name of an enumerator as it is declared. For enumerations that the meta-object system knows.
template <typename Enum>
QString enumeratorName(Enum value) {
  return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(static_cast<int>(value)));
}

/// The enumerator with exactly this name (case-sensitive), or nothing. QMetaEnum's own look-up would also
/// take names with a scope.
template <typename Enum>
std::optional<Enum> enumeratorNamed(QStringView name) {
  const QMetaEnum enumerators = QMetaEnum::fromType<Enum>();
  for (int i = 0; i < enumerators.keyCount(); ++i) {
    if (name == QLatin1StringView(enumerators.key(i))) {
      return static_cast<Enum>(enumerators.value(i));
    }
  }
  return std::nullopt;
}

}  // namespace mireval
