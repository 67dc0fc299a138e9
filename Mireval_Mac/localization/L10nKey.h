#pragma once

#include <QObject>

#include <cstdint>

namespace mireval {
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

}  // namespace mireval
