#pragma once

#include "library/Mood.h"
#include "localization/L10nKey.h"
#include "localization/StringTables.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <span>

namespace mireval {

/// The one source of the interface's texts. Used on the UI thread; look-ups cannot fail.
class AppLocalization : public QObject {
  Q_OBJECT

 public:
  /// Speaks English from the shipped tables.
  AppLocalization();

  /// Speaks from the given tables, which may lack entries.
  AppLocalization(std::span<const LocalizedText> texts, std::span<const LocalizedMoodText> moodTitles);

  /// The text of the key; empty when the tables do not hold it.
  Q_INVOKABLE QString text(mireval::l10n::L10nKey key) const;

  /// The title on the mood's tile; a fixed English word when the tables do not hold it.
  Q_INVOKABLE QString moodTitle(mireval::Mood mood) const;

 Q_SIGNALS:
  /// The texts are about to change: read them again.
  void objectWillChange();

 private:
  QHash<L10nKey, QString> m_texts;
  QHash<Mood, QString> m_moodTitles;
};

}  // namespace mireval
