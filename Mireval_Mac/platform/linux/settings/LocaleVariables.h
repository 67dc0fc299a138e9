#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace mireval {

/// What the variables of a locale (LANG, LC_ALL and so on) say of the user's languages, whoever holds them.
/// Encodings and modifiers (".UTF-8", "@euro") are left out; "C" and "POSIX" are no language.
class LocaleVariables {
 public:
  /// Gives the value of a variable; empty when it is not set.
  using Lookup = std::function<QByteArray(const char* name)>;

  /// Reads the variables once.
  explicit LocaleVariables(const Lookup& valueOf);

  /// The entries of LANGUAGE, then LC_ALL, LC_MESSAGES and LANG, as they are written.
  QStringList preferredLanguages() const;

  /// Those of the application's localizations ("en", "zh-Hans", "zh-Hant", "ja") that fit the preferred
  /// languages, in their order, each once.
  QStringList preferredLocalizations() const;

  /// The locale that formats follow: the first of LC_ALL, LC_NUMERIC and LANG that is set.
  QString currentLocaleIdentifier() const;

 private:
  const QByteArray m_language;
  const QByteArray m_lcAll;
  const QByteArray m_lcMessages;
  const QByteArray m_lcNumeric;
  const QByteArray m_lang;
};

}  // namespace mireval
