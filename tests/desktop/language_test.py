"""Changes the system's language and colours under the open windows of the player."""

from pathlib import Path

from desktop_case import PROGRAM, DesktopTest, make_tones
from locale_service import LocaleService
from player import Player
from portal import DARK, LIGHT, SettingsPortal
from session import wait_for

ENGLISH = ["Focus", "Tempo", "Create", "Relax", "Previous", "Play", "Next", "Quit"]
JAPANESE = ["集中", "テンポ", "創造", "リラックス", "前の曲", "再生", "次の曲", "終了"]
TRADITIONAL = ["聚焦", "節奏", "創意", "放鬆", "上一首", "播放", "下一首", "退出"]
SIMPLIFIED = ["聚焦", "节奏", "创意", "放松", "上一首", "播放", "下一首", "退出"]
WHITE, BLACK = (255, 255, 255), (0, 0, 0)
LIGHT_CARD, DARK_CARD = (246, 243, 237), (13, 16, 21)


class LanguageCase(DesktopTest):
    desktop = {"system_bus": True}

    def start_player(self, **environment):
        # Every system has this locale. Newer versions of Qt complain about one that is not installed.
        return Player(self.session, PROGRAM, self.resources, environment={"LANG": "C.UTF-8", **environment})

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60)

    def expect_language(self, player, buttons, *texts):
        wait_for(lambda: [text for text in player.texts() if text in buttons] == buttons, f"the buttons {buttons}")
        shown = player.texts()
        for text in texts:
            self.assertIn(text, shown)


class OpenWindowsTest(LanguageCase):
    def test_both_windows_follow_the_system(self):
        locale, portal = LocaleService(self.session), SettingsPortal(self.session, LIGHT)
        player = self.start_player()
        player.find_icon()
        self.run_copy("--settings")
        player.wait_for_text("Language")
        self.run_copy()
        self.expect_language(player, ENGLISH, "Now Playing", "Select a mode", "1 / 3", "Language", "English")
        self.session.screenshot("english")

        locale.set_locale(["LANG=ja_JP.UTF-8"])
        self.expect_language(player, JAPANESE, "再生中", "カテゴリを選択", "言語", "日本語")
        self.assert_colours(player, WHITE, LIGHT_CARD)
        portal.set_color_scheme(DARK)
        self.assert_colours(player, BLACK, DARK_CARD)
        self.session.screenshot("japanese-dark")

        locale.set_locale(["LANG=de_DE.UTF-8", "LC_MESSAGES=zh_TW.UTF-8"])
        self.expect_language(player, TRADITIONAL, "正在播放", "選擇一個分類", "語言", "繁體中文")
        portal.set_color_scheme(LIGHT)
        self.assert_colours(player, WHITE, LIGHT_CARD)
        self.session.screenshot("traditional-light")

        # Every button works without a pointer.
        recorder = self.listen()
        self.assertTrue(self.session.accessibility.press(player.find_button("聚焦")))
        player.wait_for_text("1 / 16")
        self.hear_tone(recorder)
        self.assertTrue(self.session.accessibility.press(player.find_button("下一首")))
        player.wait_for_text("2 / 16")
        self.assertTrue(self.session.accessibility.press(player.find_button("上一首")))
        player.wait_for_text("1 / 16")
        self.assertTrue(self.session.accessibility.press(player.find_button("暫停")))
        player.wait_for_text("播放")
        self.hear_silence(recorder)

        locale.set_locale(["LANG=fr_FR.UTF-8"])
        self.expect_language(player, ENGLISH, "Now Playing", "Language", "English")
        self.session.accessibility.press(player.find_button("Quit"))
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))
        # Qt would cache views there that were not compiled with the program.
        self.assertEqual(list(Path(self.session.environment["XDG_CACHE_HOME"]).rglob("*.qml*")), [])

    def assert_colours(self, player, paper, card):
        first_mode = player.buttons()[0]
        middle, top = first_mode.centre[0], first_mode.extents[1]
        product = player.find_text("Mireval")
        right = product.extents[0] + product.extents[2]

        def seen():
            shot = self.session.screenshot("colours")
            return shot.pixel(middle, top - 8), shot.pixel(right + 30, product.centre[1])
        wait_for(lambda: seen() == (paper, card), f"the colours {paper} and {card}")


class PreferenceTest(LanguageCase):
    def test_a_stored_language_stays(self):
        preference = Path(self.session.environment["XDG_CONFIG_HOME"], "mireval/mireval.conf")
        preference.parent.mkdir()
        content = "# mine\n[General]\napp.language.option=chineseSimplified\n"
        preference.write_text(content, encoding="utf-8")
        locale = LocaleService(self.session)
        player = self.start_player()
        self.session.click(player.find_icon())
        self.expect_language(player, SIMPLIFIED, "正在播放", "选择一个分类")
        locale.set_locale(["LANG=ja_JP.UTF-8"])
        player.press("退出")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual(preference.read_text(encoding="utf-8"), content)
        self.assertEqual([entry.name for entry in preference.parent.iterdir()], [preference.name])

    def test_the_keyboard_is_enough(self):
        player = self.start_player(LANG="en_GB.UTF-8", LANGUAGE="zh_HK:en")
        self.session.click(player.find_icon())
        self.expect_language(player, TRADITIONAL)
        recorder = self.listen()
        self.session.press_key("space")
        self.session.screenshot("focused")
        player.wait_for_text("1 / 16")
        self.hear_tone(recorder)
        for _ in range(6):
            self.session.press_key("Tab")
        self.session.press_key("Return")
        player.wait_for_text("2 / 16")
        self.session.press_key("Tab")
        self.session.screenshot("focused-quit")
        self.session.press_key("Return")
        self.assertEqual(player.exit_status(), 0)
