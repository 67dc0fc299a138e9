#pragma once

#include "localization/EnumeratorNames.h"

#include <QObject>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace mireval {

// A namespace of its own for the reason given in AppLanguage.h.
namespace app_language_option {
Q_NAMESPACE

/// The user's choice: one of the interface's languages, or that of the system.
enum class AppLanguageOption : std::uint8_t {
  system,
  english,
  chineseSimplified,
  chineseTraditional,
  japanese,
};
Q_ENUM_NS(AppLanguageOption)

}  // namespace app_language_option

using app_language_option::AppLanguageOption;

/// Every option, in declaration order.
inline constexpr std::array allAppLanguageOptions{
    AppLanguageOption::system, AppLanguageOption::english, AppLanguageOption::chineseSimplified,
    AppLanguageOption::chineseTraditional, AppLanguageOption::japanese};

/// The option's name as declared, for example "chineseSimplified". It is what is stored.
inline QString rawValue(AppLanguageOption option) {
  return enumeratorName(option);
}

/// The option with exactly this raw value (case-sensitive), or nothing.
inline std::optional<AppLanguageOption> appLanguageOptionFromRawValue(QStringView text) {
  return enumeratorNamed<AppLanguageOption>(text);
}

/// What identifies the option in a list: its raw value. Only tests use it so far.
inline QString id(AppLanguageOption option) {
  return rawValue(option);
}

}  // namespace mireval
