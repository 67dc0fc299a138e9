#pragma once

#include "library/Mood.h"
#include "localization/L10nKey.h"

#include <span>
#include <utility>

namespace mireval {

/// One entry of a string table. The text is UTF-16 and lives as long as the program.
using LocalizedText = std::pair<L10nKey, const char16_t*>;

/// One entry of a table of mode titles.
using LocalizedMoodText = std::pair<Mood, const char16_t*>;

/// Every text of the interface in English, in the order of `L10nKey`.
std::span<const LocalizedText> englishTexts();

/// The English titles of the modes, in the order of `Mood`.
std::span<const LocalizedMoodText> englishMoodTitles();

}  // namespace mireval
