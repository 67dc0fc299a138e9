#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace mireval {

/// The user's languages by the variables of a locale (LANG, LC_ALL and so on), wherever these come from.
///
/// The locale is the first of LC_ALL, LC_MESSAGES and LANG that is not empty, as in POSIX. LANGUAGE lists
/// languages to prefer to it, as in gettext: it is ignored if there is no locale or if that is "C" or
/// "POSIX". Encodings and modifiers (".UTF-8", "@euro") are left out.
class LocaleVariables {
 public:
  /// Gives the value of a variable; empty when it is not set.
  using Lookup = std::function<QByteArray(const char* name)>;

  /// Reads the variables once.
  explicit LocaleVariables(const Lookup& valueOf);

  /// The entries of LANGUAGE, then the locale, as they are written. "C" and "POSIX" in LANGUAGE mean the
  /// untranslated texts: the list ends there, with "en".
  QStringList preferredLanguages() const;

  /// The available localizations ("en", "zh-Hans" and so on) that fit the preferred languages, in the order
  /// of these, each once. The script decides between localizations of one language; without one in the right
  /// script, the first of them fits.
  QStringList preferredLocalizations(const QStringList& available) const;

  /// The locale, such as "ja_JP"; empty if it names no language.
  QString currentLocaleIdentifier() const;

 private:
  const QByteArray m_language;
  QByteArray m_locale;
};

}  // namespace mireval
