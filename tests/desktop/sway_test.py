"""Uses the player on a Wayland desktop: the icon in its bars, and the panel beside them."""

import os
import re
import socket
import unittest
from pathlib import Path

from desktop_case import PROGRAM, SCREENSHOTS
from player import Player
from screen import Screenshot, without_shadow
from session import wait_for
from sway_session import SECOND_SCREEN, SwaybarSession, WaybarSession, leave_root
from wayland_case import FIRST_TRACK, FREE_PLACE, BarTests, DropDownTests, MusicTests, WaylandCase
from wlroots_session import FIRST_SCREEN

PICTURES = Path(os.environ["MIREVAL_SOURCE"]) / "tests/ui/pictures"
SETTINGS = "Settings – Mireval"


def setUpModule():
    leave_root()


class SwayCase(WaylandCase):
    kind = WaybarSession


class SwayWaybarTest(BarTests, SwayCase):
    places = (("bottom", "left"), ("top", "center"), ("bottom", "center"), ("top", "right"))

    def test_what_lies_below_gets_no_click_but_the_keyboard_back(self):
        with self.other_window("wayland"):
            self.open_panel()
            self.session.click(FREE_PLACE)
            self.assert_closes()
            self.session.press_key("space")
            wait_for(lambda: self.session.window("key"), "the key to reach the other window", 5)
            self.assertIsNone(self.session.window("button"))
            self.session.click(FREE_PLACE)
            wait_for(lambda: self.session.window("button"), "the button to reach the other window", 5)


class SwaySwaybarTest(BarTests, SwayCase):
    kind = SwaybarSession
    edge = "bottom"
    places = (("top",), ("bottom",))


class SwayScreensTest(SwayCase):
    """Two screens side by side; the first has more pixels at times."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.session.add_screen()

    def assert_opens_on(self, screen, edge, place):
        self.restart_bar(edge, place, screen)
        self.assert_opens_beside_icon(edge, f"{screen}-{edge}-{place}")

    def test_opens_on_the_screen_of_the_icon(self):
        for place in ((SECOND_SCREEN, "top", "left"), (SECOND_SCREEN, "bottom", "center"),
                      (FIRST_SCREEN, "bottom", "right")):
            with self.subTest(place):
                self.assert_opens_on(*place)

    def test_opens_on_the_screen_of_the_icon_when_one_is_finer(self):
        self.session.set_scale(2)
        self.addCleanup(self.session.set_scale, 1)
        for place in ((FIRST_SCREEN, "top", "right"), (FIRST_SCREEN, "bottom", "center"),
                      (SECOND_SCREEN, "top", "left")):
            with self.subTest(place):
                self.assert_opens_on(*place)


class SwayUnpluggedTest(SwayCase):
    def test_a_screen_goes_while_the_panel_is_on_it(self):
        self.session.add_screen()
        self.restart_bar("top", "left", SECOND_SCREEN)
        self.open_panel()
        try:
            self.session.remove_screen()
        except AssertionError:
            self.skipTest("this sway cannot unplug screens")
        wait_for(lambda: self.player.panel() is None, "the panel to close", 5)
        self.restart_bar("top", "right", FIRST_SCREEN)
        self.assert_opens_beside_icon("top", "after")


class SwayScalesTest(SwayCase):
    """One screen with more pixels than the desktop counts."""

    # In the fonts of the reference pictures, and with a protocol of what the player says to the desktop.
    environment = {"FONTCONFIG_FILE": str(PICTURES / "fonts.conf"), "LANG": "C.UTF-8", "WAYLAND_DEBUG": "client"}
    known_errors = ("",)

    def largest_picture(self):
        """The width of the widest one that the player has made."""
        return max(int(width) for width in re.findall(r"create_buffer\(new id wl_buffer@\d+, \d+, (\d+)",
                                                      self.player.errors.replace("#", "@")))

    def set_scale(self, scale):
        self.addCleanup(self.session.set_scale, 1)
        self.session.set_scale(scale)
        self.restart_bar("top", "center")

    def test_sharp_at_scale_2(self):
        self.set_scale(2)
        self.assert_opens_beside_icon("top", "2")
        left, top, width, height = (2 * side for side in without_shadow(self.player.panel().extents))
        self.session.move_pointer(FREE_PLACE)
        seen = self.session.capture_at(2)
        wanted = Screenshot.by_command(None, "convert", PICTURES / "reference/2x/panel-en-light-nothing.png",
                                       "-background", "white", "-flatten", "-depth", "8", "ppm:-")
        self.assertEqual((wanted.width, wanted.height), (width, height))
        # Without the round corners, which show what is behind. Half-transparent parts are rounded once more here.
        corner = 60
        differences = [abs(one - other) for y in range(corner, height - corner)
                       for one, other in zip(seen.row(left + 4, top + y, width - 8), wanted.row(4, y, width - 8))]
        self.assertLess(sum(difference > 3 for difference in differences) / len(differences), 1e-4)

    def test_no_coarser_than_the_screen_at_scale_1_5(self):
        self.set_scale(1.5)
        self.assert_opens_beside_icon("top", "1.5")
        self.assertGreaterEqual(self.largest_picture(), 1.5 * self.player.panel().extents[2])


class SwayWithoutTrayTest(unittest.TestCase):
    """No bar: the panel is an ordinary window."""

    def test_the_panel_is_a_window(self):
        session = SwaybarSession(SCREENSHOTS, sound=False)
        self.addCleanup(session.end)
        player = Player(session, PROGRAM)
        player.wait_for_text("Select a mode")
        _, floats = wait_for(lambda: session.window("Mireval"), "the window")
        self.assertTrue(floats)
        self.assertEqual(player.errors,
                         "mireval: the desktop has no tray for the icon; the panel opens as a window\n")
        session.screenshot("window")
        session.press_key("space")
        player.wait_for_text(FIRST_TRACK, 5)


class SwaySettingsTest(SwayCase):
    """The settings beside the open panel."""

    def setUp(self):
        super().setUp()
        self.panel = self.open_panel()
        self.run_copy("--settings")
        self.player.wait_for_text("Language")

    def test_both_stay_open_and_follow_the_language(self):
        left, top, width, height = self.session.window(SETTINGS)[0]
        self.screenshot("english")
        self.assertTrue(self.session.has_keyboard(SETTINGS))
        self.assertIn("Quit", self.player.texts())
        self.session.click((left + width // 2, top + height // 2))
        self.assertIn("Quit", self.player.texts())
        self.session.click((self.panel[0] + 50, self.panel[1] + 60))
        self.player.wait_for_text(FIRST_TRACK, 5)
        self.assertIsNotNone(self.session.window(SETTINGS))
        # The panel is as before when it is alone again.
        self.session.sway(f'[title="{SETTINGS}"]', "kill")
        wait_for(lambda: "Language" not in self.player.texts(), "the settings to close", 5)
        self.session.click(FREE_PLACE)
        self.assert_closes()


class SwayXwaylandTest(DropDownTests, SwayCase):
    """The way through the X server, as on desktops without layers."""

    class Session(WaybarSession):
        xwayland = True

    kind = Session
    environment = {"QT_QPA_PLATFORM": "xcb"}
    platforms = ("wayland", "xcb")

    def test_opens_beside_the_icon(self):
        for place in (("bottom", "center"), ("top", "right")):
            with self.subTest(place):
                self.restart_bar(*place)
                self.assert_opens_beside_icon(place[0], "-".join(place))

    def test_keys_reach_the_panel(self):
        for platform in self.platforms:
            with self.other_window(platform):
                self.open_panel()
                self.session.press_key("space")
                self.player.wait_for_text(FIRST_TRACK, 5)
                self.session.press_key("Escape")
                self.assert_closes()


class SwaySilentX11Test(SwayCase):
    """An X server accepts connections, but never answers. It is asked first."""

    known_errors = ("the X server does not answer; the windows are shown without it",)

    def setUp(self):
        self.server = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.server.close)
        # The number is that of this process, which no other display has.
        self.server.bind(f"\0/tmp/.X11-unix/X{os.getpid()}")
        self.server.listen()
        self.environment = {"DISPLAY": f":{os.getpid()}", "QT_QPA_PLATFORM": "xcb;wayland"}
        super().setUp()

    def test_wayland_takes_its_place(self):
        self.assert_opens_beside_icon(self.edge, "opened")
        self.assertIn(self.known_errors[0], self.player.errors)


class SwayMusicTest(MusicTests, SwayCase):
    desktop = {"sound": True}
