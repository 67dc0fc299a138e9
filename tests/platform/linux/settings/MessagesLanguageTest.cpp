#include "localization/AppLanguage.h"
#include "localization/AppLocalization.h"
#include "platform/SystemLanguages.h"
#include "platform/linux/settings/LocaleVariables.h"

#include <gtest/gtest.h>

#include <QFile>

namespace mireval {
namespace {

/// A system with nothing but the variables of an environment.
class Environment final : public SystemLanguages {
 public:
  explicit Environment(const QByteArray& assignments)
      : m_variables([values = assignments.split(' ')](const char* name) {
          const QByteArray start = QByteArray(name) + '=';
          for (const QByteArray& assignment : values) {
            if (assignment.startsWith(start)) {
              return assignment.mid(start.size());
            }
          }
          return QByteArray();
        }) {}

  QStringList preferredLanguages() const override { return m_variables.preferredLanguages(); }
  QStringList preferredLocalizations(const QStringList& available) const override {
    return m_variables.preferredLocalizations(available);
  }
  QString currentLocaleIdentifier() const override { return m_variables.currentLocaleIdentifier(); }

 private:
  const LocaleVariables m_variables;
};

std::string languageIn(const QByteArray& assignments) {
  return rawValue(AppLocalization::detectSystemLanguage(Environment(assignments))).toStdString();
}

// The table holds what gettext said; gettext_languages.py made it.
TEST(MessagesLanguage, IsThatOfGettext) {
  QFile table(QStringLiteral(GETTEXT_LANGUAGES));
  ASSERT_TRUE(table.open(QIODevice::ReadOnly));
  int rows = 0;
  while (!table.atEnd()) {
    const QByteArrayList columns = table.readLine().chopped(1).split('\t');
    ASSERT_EQ(columns.size(), 2);
    EXPECT_EQ(languageIn(columns[0]), columns[1].toStdString()) << columns[0].toStdString();
    ++rows;
  }
  EXPECT_GE(rows, 160);
}

// Here gettext stops at LANGUAGE, and shows the untranslated text.
TEST(MessagesLanguage, FollowsTheLocaleWhereNoEntryOfLanguageIsOurs) {
  EXPECT_EQ(languageIn("LANGUAGE=fr LANG=ja_JP.UTF-8"), "ja");
  EXPECT_EQ(languageIn("LANGUAGE=: LANG=ja_JP.UTF-8"), "ja");
  EXPECT_EQ(languageIn("LANGUAGE=fr:de LC_ALL=zh_TW.UTF-8 LANG=ja_JP.UTF-8"), "zh-Hant");
  EXPECT_EQ(languageIn("LANGUAGE=fr LC_ALL=de_DE.UTF-8 LANG=ja_JP.UTF-8"), "en");
  EXPECT_EQ(languageIn("LANGUAGE=fr:C LANG=ja_JP.UTF-8"), "en");
}

}  // namespace
}  // namespace mireval
