"""The words of the panel and of the settings in each language."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Words:
    # The name of the group, then of each mode in the order of the panel.
    modes: str
    mode_names: tuple
    now_playing: str
    select_mode: str
    previous: str
    play: str
    next: str
    quit: str
    pause: str
    # How a screen reader describes the button of the current mode.
    is_playing: str
    is_paused: str
    settings: str
    language: str
    own_name: str


# By the locale that asks for it.
WORDS = {
    "en_GB.UTF-8": Words("Modes", ("Focus", "Tempo", "Create", "Relax"), "Now Playing", "Select a mode", "Previous",
                         "Play", "Next", "Quit", "Pause", "Playing", "Paused", "Settings", "Language", "English"),
    "ja_JP.UTF-8": Words("モード", ("集中", "テンポ", "創造", "リラックス"), "再生中", "カテゴリを選択", "前の曲",
                         "再生", "次の曲", "終了", "一時停止", "再生中", "一時停止中", "設定", "言語", "日本語"),
    "zh_TW.UTF-8": Words("模式", ("聚焦", "節奏", "創意", "放鬆"), "正在播放", "選擇一個分類", "上一首",
                         "播放", "下一首", "退出", "暫停", "正在播放", "已暫停", "設定", "語言", "繁體中文"),
    "zh_CN.UTF-8": Words("模式", ("聚焦", "节奏", "创意", "放松"), "正在播放", "选择一个分类", "上一首",
                         "播放", "下一首", "退出", "暂停", "正在播放", "已暂停", "设置", "语言", "简体中文"),
}
