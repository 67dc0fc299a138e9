#pragma once

#include "library/Mood.h"
#include "localization/AppLanguage.h"
#include "localization/L10nKey.h"

#include <QStringView>

#include <span>
#include <utility>

namespace mireval {

/// One entry of a string table. The text lives as long as the program.
using LocalizedText = std::pair<L10nKey, QStringView>;

/// One entry of a table of mode titles or subtitles. The text lives as long as the program.
using LocalizedMoodText = std::pair<Mood, QStringView>;

/// The texts of one language.
struct LanguageTables {
  AppLanguage language;
  /// In the order of `L10nKey`.
  std::span<const LocalizedText> texts;
  /// Both in the order of `Mood`.
  std::span<const LocalizedMoodText> moodTitles;
  std::span<const LocalizedMoodText> moodSubtitles;
};

/// The tables that ship with the application: complete, and in the order of `AppLanguage`.
std::span<const LanguageTables> shippedTables();

}  // namespace mireval
