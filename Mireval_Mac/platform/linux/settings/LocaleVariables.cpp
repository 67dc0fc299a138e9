#include "platform/linux/settings/LocaleVariables.h"

#include <QByteArrayList>
#include <QLocale>

#include <algorithm>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// True for the locale without translations.
bool isUntranslated(const QByteArray& locale) {
  return locale == "C" || locale == "POSIX";
}

/// "ja_JP" of "ja_JP.UTF-8"; empty where it names no language.
QString languageOf(const QByteArray& value) {
  const auto end = std::find_if(value.begin(), value.end(), [](char c) { return c == '.' || c == '@'; });
  const QByteArray name = value.left(end - value.begin());
  return isUntranslated(name) ? QString() : QString::fromUtf8(name);
}

QString localizationFor(const QString& language, const QStringList& available) {
  // QLocale knows other spellings, such as "jpn", and which script a territory writes.
  const QLocale wanted(language);
  QString sameLanguage;
  for (const QString& tag : available) {
    const QLocale offered(tag);
    if (offered.language() != wanted.language()) {
      continue;
    }
    if (offered.script() == wanted.script()) {
      return tag;
    }
    if (sameLanguage.isEmpty()) {
      sameLanguage = tag;
    }
  }
  return sameLanguage;
}

}  // namespace

LocaleVariables::LocaleVariables(const Lookup& valueOf) : m_language(valueOf("LANGUAGE")) {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (m_locale.isEmpty()) {
      m_locale = valueOf(name);
    }
  }
}

QStringList LocaleVariables::preferredLanguages() const {
  if (m_locale.isEmpty() || isUntranslated(m_locale)) {
    return {};
  }
  const QByteArrayList values = m_language.split(':') << m_locale;
  QStringList languages;
  for (const QByteArray& value : values) {
    if (isUntranslated(value)) {
      languages.append(u"en"_s);
      break;
    }
    if (const QString language = languageOf(value); !language.isEmpty()) {
      languages.append(language);
    }
  }
  return languages;
}

QStringList LocaleVariables::preferredLocalizations(const QStringList& available) const {
  QStringList localizations;
  for (const QString& language : preferredLanguages()) {
    const QString localization = localizationFor(language, available);
    if (!localization.isEmpty() && !localizations.contains(localization)) {
      localizations.append(localization);
    }
  }
  return localizations;
}

QString LocaleVariables::currentLocaleIdentifier() const {
  return languageOf(m_locale);
}

}  // namespace mireval
