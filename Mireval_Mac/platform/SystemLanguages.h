#pragma once

#include <QString>
#include <QStringList>

namespace mireval {

/// What the system knows of the user's languages. Every call asks afresh. Used on the UI thread. Language
/// tags are written as the system writes them: "zh-Hant-TW", "zh_TW", "ja".
class SystemLanguages {
 public:
  virtual ~SystemLanguages() = default;

  /// The languages that the user prefers, the best first; may be empty.
  virtual QStringList preferredLanguages() const = 0;

  /// Those of the available localizations, given by their tags, that fit the user's languages, the best
  /// first; may be empty.
  virtual QStringList preferredLocalizations(const QStringList& available) const = 0;

  /// The identifier of the locale in effect, such as "ja_JP"; may be empty.
  virtual QString currentLocaleIdentifier() const = 0;
};

}  // namespace mireval
