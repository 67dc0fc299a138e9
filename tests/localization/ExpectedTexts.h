#pragma once

#include "library/Mood.h"
#include "localization/AppLanguage.h"
#include "localization/L10nKey.h"

#include <QString>

#include <array>
#include <string>
#include <vector>

namespace mireval {

// The interface's vocabulary, typed a second time: a slip in one of the copies shows as a difference. One row
// per text, one column per language, in the order of `AppLanguage`.

template <typename Key>
struct ExpectedText {
  Key key;
  std::array<std::string, allAppLanguages.size()> byLanguage;

  QString text(AppLanguage language) const {
    return QString::fromStdString(byLanguage.at(static_cast<std::size_t>(language)));
  }
};

inline const std::vector<ExpectedText<L10nKey>> expectedTexts{
    {L10nKey::heroTitle,
     {"Every piece is curated for work companion", "每一段声音都为工作陪伴而精心挑选",
      "每一段聲音都為工作陪伴而精心挑選", "すべての音は、仕事に寄り添うために選び抜かれています"}},
    {L10nKey::heroSubtitle,
     {"Choose a mode. Stay there. Let the environment do the rest.",
      "选择一种状态，停留其中，让环境自然接管。", "選擇一種狀態，停留其中，讓環境自然接管。",
      "モードを選び、そのまま留まり、空気に任せてください。"}},
    {L10nKey::modesHeading, {"MODES", "模式", "模式", "モード"}},
    {L10nKey::playing, {"Playing", "播放中", "播放中", "再生中"}},
    {L10nKey::ready, {"Ready", "就绪", "就緒", "準備完了"}},
    {L10nKey::settingsTitle, {"Settings", "设置", "設定", "設定"}},
    {L10nKey::languageTitle, {"Language", "语言", "語言", "言語"}},
    {L10nKey::languageDescription,
     {"Choose how Mireval displays text.", "选择 Mireval 的界面语言。", "選擇 Mireval 的介面語言。",
      "Mireval の表示言語を選択します。"}},
    {L10nKey::followSystem, {"Follow System", "跟随系统", "跟隨系統", "システムに従う"}},
    {L10nKey::nowPlaying, {"Now Playing", "正在播放", "正在播放", "再生中"}},
    {L10nKey::selectMode, {"Select a mode", "选择一个分类", "選擇一個分類", "カテゴリを選択"}},
    {L10nKey::quit, {"Quit", "退出", "退出", "終了"}},
};

inline const std::vector<ExpectedText<Mood>> expectedMoodTitles{
    {Mood::relaxation, {"Relax", "放松", "放鬆", "リラックス"}},
    {Mood::focus, {"Focus", "聚焦", "聚焦", "集中"}},
    {Mood::creative, {"Create", "创意", "創意", "創造"}},
    {Mood::tempo, {"Tempo", "节奏", "節奏", "テンポ"}},
};

inline const std::vector<ExpectedText<Mood>> expectedMoodSubtitles{
    {Mood::relaxation,
     {"Soothing restful environments", "舒缓放松的环境氛围", "舒緩放鬆的環境氛圍",
      "やわらかく落ち着く環境音"}},
    {Mood::focus,
     {"Deep concentration sounds", "适合深度专注的声音", "適合深度專注的聲音", "深く集中するためのサウンド"}},
    {Mood::creative,
     {"Inventive playful loops", "适合发散思考的声音", "適合發散思考的聲音", "発想を広げるためのループ"}},
    {Mood::tempo,
     {"Energetic rhythmic beats", "有节奏感的工作陪伴", "有節奏感的工作陪伴", "リズムを保つためのビート"}},
};

}  // namespace mireval
