#include "localization/StringTables.h"

#include <array>

namespace mireval {
namespace {

constexpr auto englishTextTable = std::to_array<LocalizedText>({
    {L10nKey::heroTitle, u"Every piece is curated for work companion"},
    {L10nKey::heroSubtitle, u"Choose a mode. Stay there. Let the environment do the rest."},
    {L10nKey::modesHeading, u"MODES"},
    {L10nKey::playing, u"Playing"},
    {L10nKey::ready, u"Ready"},
    {L10nKey::settingsTitle, u"Settings"},
    {L10nKey::languageTitle, u"Language"},
    {L10nKey::languageDescription, u"Choose how Mireval displays text."},
    {L10nKey::followSystem, u"Follow System"},
    {L10nKey::nowPlaying, u"Now Playing"},
    {L10nKey::selectMode, u"Select a mode"},
    {L10nKey::quit, u"Quit"},
});

constexpr auto englishMoodTitleTable = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"Relax"},
    {Mood::focus, u"Focus"},
    {Mood::creative, u"Create"},
    {Mood::tempo, u"Tempo"},
});

}  // namespace

std::span<const LocalizedText> englishTexts() {
  return englishTextTable;
}

std::span<const LocalizedMoodText> englishMoodTitles() {
  return englishMoodTitleTable;
}

}  // namespace mireval
