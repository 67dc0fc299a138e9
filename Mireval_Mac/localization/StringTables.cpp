#include "localization/StringTables.h"

#include <algorithm>
#include <array>

namespace mireval {
namespace {

constexpr auto englishTexts = std::to_array<LocalizedText>({
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

constexpr auto englishMoodTitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"Relax"},
    {Mood::focus, u"Focus"},
    {Mood::creative, u"Create"},
    {Mood::tempo, u"Tempo"},
});

constexpr auto englishMoodSubtitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"Soothing restful environments"},
    {Mood::focus, u"Deep concentration sounds"},
    {Mood::creative, u"Inventive playful loops"},
    {Mood::tempo, u"Energetic rhythmic beats"},
});

constexpr auto chineseSimplifiedTexts = std::to_array<LocalizedText>({
    {L10nKey::heroTitle, u"每一段声音都为工作陪伴而精心挑选"},
    {L10nKey::heroSubtitle, u"选择一种状态，停留其中，让环境自然接管。"},
    {L10nKey::modesHeading, u"模式"},
    {L10nKey::playing, u"播放中"},
    {L10nKey::ready, u"就绪"},
    {L10nKey::settingsTitle, u"设置"},
    {L10nKey::languageTitle, u"语言"},
    {L10nKey::languageDescription, u"选择 Mireval 的界面语言。"},
    {L10nKey::followSystem, u"跟随系统"},
    {L10nKey::nowPlaying, u"正在播放"},
    {L10nKey::selectMode, u"选择一个分类"},
    {L10nKey::quit, u"退出"},
});

constexpr auto chineseSimplifiedMoodTitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"放松"},
    {Mood::focus, u"聚焦"},
    {Mood::creative, u"创意"},
    {Mood::tempo, u"节奏"},
});

constexpr auto chineseSimplifiedMoodSubtitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"舒缓放松的环境氛围"},
    {Mood::focus, u"适合深度专注的声音"},
    {Mood::creative, u"适合发散思考的声音"},
    {Mood::tempo, u"有节奏感的工作陪伴"},
});

constexpr auto chineseTraditionalTexts = std::to_array<LocalizedText>({
    {L10nKey::heroTitle, u"每一段聲音都為工作陪伴而精心挑選"},
    {L10nKey::heroSubtitle, u"選擇一種狀態，停留其中，讓環境自然接管。"},
    {L10nKey::modesHeading, u"模式"},
    {L10nKey::playing, u"播放中"},
    {L10nKey::ready, u"就緒"},
    {L10nKey::settingsTitle, u"設定"},
    {L10nKey::languageTitle, u"語言"},
    {L10nKey::languageDescription, u"選擇 Mireval 的介面語言。"},
    {L10nKey::followSystem, u"跟隨系統"},
    {L10nKey::nowPlaying, u"正在播放"},
    {L10nKey::selectMode, u"選擇一個分類"},
    {L10nKey::quit, u"退出"},
});

constexpr auto chineseTraditionalMoodTitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"放鬆"},
    {Mood::focus, u"聚焦"},
    {Mood::creative, u"創意"},
    {Mood::tempo, u"節奏"},
});

constexpr auto chineseTraditionalMoodSubtitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"舒緩放鬆的環境氛圍"},
    {Mood::focus, u"適合深度專注的聲音"},
    {Mood::creative, u"適合發散思考的聲音"},
    {Mood::tempo, u"有節奏感的工作陪伴"},
});

constexpr auto japaneseTexts = std::to_array<LocalizedText>({
    {L10nKey::heroTitle, u"すべての音は、仕事に寄り添うために選び抜かれています"},
    {L10nKey::heroSubtitle, u"モードを選び、そのまま留まり、空気に任せてください。"},
    {L10nKey::modesHeading, u"モード"},
    {L10nKey::playing, u"再生中"},
    {L10nKey::ready, u"準備完了"},
    {L10nKey::settingsTitle, u"設定"},
    {L10nKey::languageTitle, u"言語"},
    {L10nKey::languageDescription, u"Mireval の表示言語を選択します。"},
    {L10nKey::followSystem, u"システムに従う"},
    {L10nKey::nowPlaying, u"再生中"},
    {L10nKey::selectMode, u"カテゴリを選択"},
    {L10nKey::quit, u"終了"},
});

constexpr auto japaneseMoodTitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"リラックス"},
    {Mood::focus, u"集中"},
    {Mood::creative, u"創造"},
    {Mood::tempo, u"テンポ"},
});

constexpr auto japaneseMoodSubtitles = std::to_array<LocalizedMoodText>({
    {Mood::relaxation, u"やわらかく落ち着く環境音"},
    {Mood::focus, u"深く集中するためのサウンド"},
    {Mood::creative, u"発想を広げるためのループ"},
    {Mood::tempo, u"リズムを保つためのビート"},
});

constexpr auto tables = std::to_array<LanguageTables>({
    {AppLanguage::english, englishTexts, englishMoodTitles, englishMoodSubtitles},
    {AppLanguage::chineseSimplified, chineseSimplifiedTexts, chineseSimplifiedMoodTitles,
     chineseSimplifiedMoodSubtitles},
    {AppLanguage::chineseTraditional, chineseTraditionalTexts, chineseTraditionalMoodTitles,
     chineseTraditionalMoodSubtitles},
    {AppLanguage::japanese, japaneseTexts, japaneseMoodTitles, japaneseMoodSubtitles},
});

static_assert(std::ranges::equal(tables, allAppLanguages, {}, &LanguageTables::language),
              "tables for each language, in declaration order");

}  // namespace

std::span<const LanguageTables> shippedTables() {
  return tables;
}

}  // namespace mireval
