#include "platform/linux/settings/LocaleVariables.h"

#include <QByteArrayList>
#include <QLocale>

#include <algorithm>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// "ja_JP" of "ja_JP.UTF-8"; empty for what names no language.
QString languageOf(const QByteArray& value) {
  const auto end = std::find_if(value.begin(), value.end(), [](char c) { return c == '.' || c == '@'; });
  const QString name = QString::fromUtf8(value.left(end - value.begin()));
  return name == "C"_L1 || name == "POSIX"_L1 ? QString() : name;
}

QString localizationFor(const QString& language) {
  // Knows other spellings, such as "jpn", and which script a territory writes.
  const QLocale locale(language);
  switch (locale.language()) {
    case QLocale::English:
      return u"en"_s;
    case QLocale::Chinese:
      return locale.script() == QLocale::TraditionalHanScript ? u"zh-Hant"_s : u"zh-Hans"_s;
    case QLocale::Japanese:
      return u"ja"_s;
    default:
      return {};
  }
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

QStringList LocaleVariables::preferredLocalizations() const {
  QStringList localizations;
  for (const QString& language : preferredLanguages()) {
    const QString localization = localizationFor(language);
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
