#pragma once

#include "localization/AppLanguageOption.h"

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>

namespace mireval {

// A namespace can be Q_NAMESPACE in one header only, so each enumeration has one of its own.
namespace app_language {
Q_NAMESPACE

/// A language that the interface speaks. English stands in wherever another one lacks something.
///
/// The type is quint8 because QML's registration knows Qt's names of integers only.
enum class AppLanguage : quint8 { english, chineseSimplified, chineseTraditional, japanese };
Q_ENUM_NS(AppLanguage)

}  // namespace app_language

using app_language::AppLanguage;

/// Every language, in declaration order.
inline constexpr std::array allAppLanguages{AppLanguage::english, AppLanguage::chineseSimplified,
                                            AppLanguage::chineseTraditional, AppLanguage::japanese};

/// The language's tag, for example "zh-Hans".
QString rawValue(AppLanguage language);

/// The language with exactly this tag (case-sensitive), or nothing.
std::optional<AppLanguage> appLanguageFromRawValue(QStringView rawValue);

/// The language that the option fixes; nothing for `system`.
std::optional<AppLanguage> appLanguageFromOption(AppLanguageOption option);

/// The language that the tag begins with, or nothing. The longest prefix decides ("zh-hant" before "zh"); a
/// script, a region or anything else may follow it. The tag must be in lower case, with hyphens.
std::optional<AppLanguage> appLanguageFromTag(QStringView tag);

/// What identifies the language in a list: its raw value. Only tests use it so far.
QString id(AppLanguage language);

/// The language's own name for itself, the same whatever language the interface speaks.
QString displayName(AppLanguage language);

/// The family of fonts that draws the characters that Chinese and Japanese share in this language's shapes;
/// empty for other languages.
QString fontFamily(AppLanguage language);

}  // namespace mireval
