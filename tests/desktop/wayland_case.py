"""What the tests on Wayland desktops have in common: the icon in a bar, and the panel beside it."""

import os
import time
from contextlib import contextmanager

from desktop_case import PROGRAM, SCREENSHOTS, DesktopTest, make_tones
from media import Playerctl, wait_for_player
from player import Player
from screen import is_shaded, without_shadow
from session import wait_for
from sound import RATE, longest_silence
from wlroots_session import SCREEN_SIZE, hexadecimal

OTHER_WINDOW = os.environ["MIREVAL_OTHER_WINDOW"]
OTHER_COLOUR = (0x80, 0x60, 0x20)
# Between the panel and its bar, and from its centre to the icon's, in pixels.
LARGEST_GAP = 16
LARGEST_OFFSET = 20
# Longer than the guard against a second click, and than the panel takes to open.
SETTLING_SECONDS = 0.5
LONG_CLICK_SECONDS = 0.6
# Left of the panel, and on no bar.
FREE_PLACE = (60, 500)
# The same, and never the pointer's.
PLAIN_PLACE = (60, 400)
FIRST_TRACK = "1 / 16"


class WaylandCase(DesktopTest):
    """One desktop for all tests of a class, and a player for each."""

    # Of session.
    kind = None
    desktop = {"sound": False}
    environment = {}
    edge = "top"
    # Parts of error lines that are not the player's fault.
    known_errors = ()

    @classmethod
    def setUpClass(cls):
        cls.session = cls.kind(SCREENSHOTS, **cls.desktop)
        cls.addClassCleanup(cls.session.end)
        cls.session.start_bar(cls.edge)
        cls.resources = make_tones(cls.session.folder / "resources", 60)

    def setUp(self):
        self.player = Player(self.session, PROGRAM, self.resources, environment=self.environment)
        self.addCleanup(self.end_player)
        self.find_icon()

    def end_player(self):
        self.player.process.kill()
        self.player.process.wait(10)
        known = self.known_errors
        if not self.desktop.get("sound", True):
            known += ("no sound server answers",)
        unexpected = [line for line in self.player.errors.splitlines() if not any(part in line for part in known)]
        self.assertEqual(unexpected, [])

    def screenshot(self, name):
        return self.session.screenshot(f"{self._testMethodName.removeprefix('test_')}-{name}")

    def restart_bar(self, *place):
        """Replaces the bar and finds the icon on the new one. The panel closes."""
        self.session.stop_bar()
        self.session.press_key("Escape")
        wait_for(lambda: self.player.panel() is None, "the panel to close", 5)
        self.session.start_bar(*place)
        self.find_icon()

    def find_icon(self):
        self.session.move_pointer(FREE_PLACE)
        self.icon = self.player.find_icon()

    def open_panel(self, **click):
        """Opens the panel and returns its rectangle when it has stayed open for a while."""
        self.session.click(self.icon, **click)
        return self.wait_until_open()

    def wait_until_open(self):
        wait_for(self.player.panel, "the panel", 5)
        time.sleep(SETTLING_SECONDS)
        panel = self.player.panel()
        self.assertIsNotNone(panel, "the panel has closed by itself")
        return without_shadow(panel.extents)

    def assert_closes(self):
        wait_for(lambda: self.player.panel() is None, "the panel to close", 5)
        time.sleep(SETTLING_SECONDS)
        self.assertIsNone(self.player.panel(), "the panel has opened again")

    def assert_seen(self, rectangle, behind, shot):
        """The whole panel is visible there, and at its round corners and around it, below its shadow, what was behind
        it in the first picture.
        """
        left, top, width, height = rectangle
        right, bottom = left + width, top + height
        self.assertGreater(min(width, height), 200)
        self.assertTrue(left >= 0 and top >= 0 and right <= shot.width and bottom <= shot.height, rectangle)
        x, y = left + width // 2, top + height // 2
        for place in ((left + 4, y), (right - 5, y), (x, top + 4), (x, bottom - 5)):
            self.assertNotEqual(shot.pixel(*place), behind.pixel(*place), place)
        for place in ((left + 1, top + 1), (right - 2, top + 1), (left + 1, bottom - 2), (right - 2, bottom - 2)):
            self.assertTrue(is_shaded(shot.pixel(*place), behind.pixel(*place)), place)

    def assert_beside_icon(self, rectangle, edge):
        left, top, width, height = rectangle
        area_left, area_top, area_width, area_height = self.session.work_area(self.icon)
        wanted = min(max(self.icon[0] - width // 2, area_left), area_left + area_width - width)
        self.assertAlmostEqual(left, wanted, delta=LARGEST_OFFSET, msg=rectangle)
        gap = top - area_top if edge == "top" else area_top + area_height - (top + height)
        self.assertTrue(0 <= gap <= LARGEST_GAP, (gap, rectangle))

    def assert_opens_beside_icon(self, edge, name, **click):
        behind = self.screenshot("behind")
        rectangle = self.open_panel(**click)
        self.assert_seen(rectangle, behind, self.screenshot(name))
        self.assert_beside_icon(rectangle, edge)

    def other_window_is_shown(self):
        return self.session.screenshot("other").pixel(*PLAIN_PLACE) == OTHER_COLOUR

    @contextmanager
    def other_window(self, platform):
        """A window of another application."""
        window = self.session.start([OTHER_WINDOW, hexadecimal(OTHER_COLOUR)],
                                    environment={"QT_QPA_PLATFORM": platform})
        try:
            wait_for(self.other_window_is_shown, "the other window")
            yield
        finally:
            window.kill()
            window.wait(10)


class OtherWindowTests:
    """With windows of other programs."""

    platforms = ("wayland",)

    def test_click_on_another_window_closes(self):
        for platform in self.platforms:
            with self.other_window(platform):
                self.open_panel()
                self.screenshot(platform)
                self.session.click(FREE_PLACE)
                self.assert_closes()


class DropDownTests(OtherWindowTests):
    """What holds where the panel opens beside the icon."""

    def test_click_on_the_background_closes(self):
        self.open_panel()
        self.session.click(FREE_PLACE)
        self.assert_closes()

    def test_click_on_the_shadow_closes(self):
        left, top, width, height = self.open_panel()
        self.session.click((left - 8, top + height // 2))
        self.assert_closes()

    def test_click_on_the_bar_closes(self):
        self.open_panel()
        # GNOME has its clock in the middle.
        self.session.click((SCREEN_SIZE[0] // 4, self.icon[1]))
        self.assert_closes()

    def test_second_start_opens(self):
        behind = self.screenshot("behind")
        self.open_panel()
        self.session.press_key("Escape")
        self.assert_closes()
        self.run_copy()
        rectangle = self.wait_until_open()
        self.assert_seen(rectangle, behind, self.screenshot("opened"))
        self.session.press_key("Escape")
        self.assert_closes()


class BarTests(DropDownTests):
    """What holds on the bars of sway and labwc."""

    # What `start_bar` takes; the first is the edge.
    places = ()

    def test_opens_beside_the_icon_wherever_the_bar_is(self):
        for place in self.places:
            with self.subTest(place):
                self.restart_bar(*place)
                self.assert_opens_beside_icon(place[0], "-".join(place))
        self.restart_bar(self.edge)

    def test_long_clicks(self):
        self.assert_opens_beside_icon(self.edge, "opened", hold=LONG_CLICK_SECONDS)
        self.session.click(self.icon, hold=LONG_CLICK_SECONDS)
        self.assert_closes()

    def test_second_click_closes(self):
        for _ in range(2):
            self.open_panel()
            self.session.click(self.icon)
            self.assert_closes()
        self.screenshot("closed")

    def test_keys_reach_the_panel(self):
        with self.other_window("wayland"):
            self.open_panel()
            self.session.press_key("space")
            self.player.wait_for_text(FIRST_TRACK, 5)
            self.screenshot("pressed")
            self.session.press_key("Escape")
            self.assert_closes()
        if "xcb" in self.platforms:
            with self.other_window("xcb"):
                self.open_panel()
                self.session.press_key("Escape")
                self.assert_closes()

    def test_right_click_opens(self):
        self.assert_opens_beside_icon(self.edge, "opened", button="right")
        self.session.click(self.icon, button="right")
        self.assert_closes()

    def test_wheel_does_nothing(self):
        self.session.move_pointer(self.icon)
        self.session.scroll(3)
        self.session.scroll(-3)
        time.sleep(SETTLING_SECONDS)
        self.assertIsNone(self.player.panel())

    def test_click_in_the_panel_does_not_close(self):
        self.open_panel()
        self.player.press("Focus")
        self.player.wait_for_text(FIRST_TRACK, 5)
        self.session.press_key("Escape")
        self.assert_closes()


class MediaTests:
    """The media controls. These tests need a sound server."""

    def test_media_controls_show_the_track_and_pause_it(self):
        self.open_panel()
        self.player.press("Focus")
        self.player.wait_for_text(FIRST_TRACK, 5)
        recorder = self.listen()
        self.hear_sound(recorder)
        wait_for_player(self.session).wait_for_status("Playing")
        playerctl = Playerctl(self.session)
        self.assertIn(playerctl("metadata", "xesam:title"), self.player.texts())
        self.assertEqual(playerctl("metadata", "xesam:artist"), "Mireval • Focus")
        playerctl("pause")
        self.hear_silence(recorder)
        self.assertEqual(playerctl("status"), "Paused")
        self.assertEqual(self.player.output, "")


class MusicTests(MediaTests):
    """The media controls and the sound."""

    def test_music_plays_on_while_bars_and_the_panel_come_and_go(self):
        self.open_panel()
        self.player.press("Focus")
        recorder = self.listen()
        self.hear_sound(recorder)
        started = recorder.mark()
        for edge in ("bottom", "top"):
            self.restart_bar(edge)
            self.open_panel()
        heard = recorder.since(started)
        self.assertGreater(len(heard), RATE)
        self.assertEqual(longest_silence(heard), 0)
        self.screenshot("playing")
