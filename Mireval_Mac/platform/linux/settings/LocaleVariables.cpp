#include "platform/linux/settings/LocaleVariables.h"

#include <QByteArrayList>
#include <QLocale>

#include <algorithm>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// "ja_JP" of "ja_JP.UTF-8"; empty where it names no language.
QString languageOf(const QByteArray& value) {
  const auto end = std::find_if(value.begin(), value.end(), [](char c) { return c == '.' || c == '@'; });
  const QString name = QString::fromUtf8(value.left(end - value.begin()));
  return name == "C"_L1 || name == "POSIX"_L1 ? QString() : name;
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

LocaleVariables::LocaleVariables(const Lookup& valueOf)
    : m_language(valueOf("LANGUAGE")),
      m_lcAll(valueOf("LC_ALL")),
      m_lcMessages(valueOf("LC_MESSAGES")),
      m_lcNumeric(valueOf("LC_NUMERIC")),
      m_lang(valueOf("LANG")) {}

QStringList LocaleVariables::preferredLanguages() const {
  const QByteArrayList values = m_language.split(':') << m_lcAll << m_lcMessages << m_lang;
  QStringList languages;
  for (const QByteArray& value : values) {
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
  for (const QByteArray& value : {m_lcAll, m_lcNumeric, m_lang}) {
    if (!value.isEmpty()) {
      return languageOf(value);
    }
  }
  return {};
}

}  // namespace mireval
