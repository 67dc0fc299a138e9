#pragma once

#include "localization/EnumeratorNames.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

namespace mireval {

// A namespace of its own for the reason given in AppLanguage.h.
namespace l10n {
Q_NAMESPACE

/// Every text of the interface that is looked up by language.
enum class L10nKey : std::uint8_t {
  heroTitle,
  heroSubtitle,
  modesHeading,
  playing,
  ready,
  settingsTitle,
  languageTitle,
  languageDescription,
  followSystem,
  nowPlaying,
  selectMode,
  quit,
};
Q_ENUM_NS(L10nKey)

}  // namespace l10n

using l10n::L10nKey;

/// The key's name as declared, for example "nowPlaying".
inline QString rawValue(L10nKey key) {
  return enumeratorName(key);
}

/// The key with exactly this raw value (case-sensitive), or nothing.
inline std::optional<L10nKey> l10nKeyFromRawValue(QStringView text) {
  return enumeratorNamed<L10nKey>(text);
}

}  // namespace mireval
