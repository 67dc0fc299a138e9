#pragma once

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>

namespace mireval {
namespace app_language {
Q_NAMESPACE

/// A language that the interface speaks. English stands in wherever another one lacks something. QML's
/// registration knows Qt's names of integers only.
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

/// What identifies the language in a list: its raw value.
QString id(AppLanguage language);

/// The language's own name for itself, the same whatever language the interface speaks.
QString displayName(AppLanguage language);

}  // namespace mireval
