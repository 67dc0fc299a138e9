#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace mireval {

/// The user's languages by the variables of a locale (LANG, LC_ALL and so on), wherever these come from.
/// Encodings and modifiers (".UTF-8", "@euro") are left out; "C" and "POSIX" are no language.
class LocaleVariables {
 public:
  /// Gives the value of a variable; empty when it is not set.
  using Lookup = std::function<QByteArray(const char* name)>;

  /// Reads the variables once.
  explicit LocaleVariables(const Lookup& valueOf);

  /// The entries of LANGUAGE, then LC_ALL, LC_MESSAGES and LANG, as they are written.
  QStringList preferredLanguages() const;

  /// The available localizations ("en", "zh-Hans" and so on) that fit the preferred languages, in the order
  /// of these, each once. The script decides between localizations of one language; without one in the right
  /// script, the first of them fits.
  QStringList preferredLocalizations(const QStringList& available) const;

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
