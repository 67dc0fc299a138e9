#pragma once

#include "library/Mood.h"
#include "localization/AppLanguage.h"
#include "localization/AppLanguageOption.h"
#include "localization/L10nKey.h"
#include "localization/StringTables.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <span>

namespace mireval {

class LocaleChanges;
class MainThread;
class SystemLanguages;
class UserDefaults;

/// Decides in which language the interface speaks, and is the one source of its texts. Used on the UI thread.
/// No look-up fails: a text that a table lacks comes in English, as a fixed word, or empty.
///
/// While the option is `system`, each look-up asks the system for its languages.
class AppLocalization : public QObject {
  Q_OBJECT
  Q_PROPERTY(
      mireval::app_language::AppLanguage effectiveLanguage READ effectiveLanguage NOTIFY languageChanged)

 public:
  /// What it needs of the desktop. Not owned; must outlive it.
  struct Services {
    UserDefaults& userDefaults;
    const SystemLanguages& systemLanguages;
    LocaleChanges& localeChanges;
    MainThread& mainThread;
  };

  /// Takes the shipped tables and the stored option, or the option `system` if none or no valid one is
  /// stored.
  explicit AppLocalization(Services services);

  /// Takes the given tables, which may lack entries or whole languages. Their texts, which are not copied,
  /// must outlive the object.
  AppLocalization(Services services, std::span<const LanguageTables> tables);

  AppLanguageOption languageOption() const { return m_languageOption; }

  /// Announces, takes and stores the option, also when it is the same as before.
  void setLanguageOption(AppLanguageOption option);

  /// Stores the option for the next start.
  void persistLanguageOption();

  /// The language of the texts: that of the option or, for `system`, the one that is detected now.
  AppLanguage effectiveLanguage() const;

  /// The first language of ours among the system's: its preferred languages, then the application's
  /// preferred localisations, then the current locale; English when there is none.
  static AppLanguage detectSystemLanguage(const SystemLanguages& systemLanguages);

  /// The text of the key, in the effective language or a given one. English if the language lacks it, empty
  /// if English lacks it too. A view passes `effectiveLanguage`, so that its binding follows a change.
  Q_INVOKABLE QString text(mireval::l10n::L10nKey key) const;
  Q_INVOKABLE QString text(mireval::l10n::L10nKey key, mireval::app_language::AppLanguage language) const;

  /// The title on the mood's tile, likewise; a fixed English word instead of an empty text.
  Q_INVOKABLE QString moodTitle(mireval::Mood mood) const;
  Q_INVOKABLE QString moodTitle(mireval::Mood mood, mireval::app_language::AppLanguage language) const;

  /// What a screen reader speaks where the panel shows no word, by the names of SpokenLabels.h; empty for any
  /// other name.
  Q_INVOKABLE QString spokenLabel(const QString& name, mireval::app_language::AppLanguage language) const;

  /// The language's own name for itself.
  Q_INVOKABLE QString displayName(mireval::app_language::AppLanguage language) const;

 Q_SIGNALS:
  /// The option or the system's languages are about to change, or may be.
  void objectWillChange();

  /// Follows each `objectWillChange`. Observers read the texts again.
  void languageChanged();

 private:
  template <typename Key>
  using Texts = QHash<AppLanguage, QHash<Key, QString>>;

  void localeDidChange();

  Services m_services;
  AppLanguageOption m_languageOption = AppLanguageOption::system;

  // Constant after construction.
  Texts<L10nKey> m_translations;
  Texts<Mood> m_moodTitles;
  Texts<Mood> m_moodSubtitles;
};

}  // namespace mireval
