"""Uses the player on a Wayland desktop: the icon in its bars, and the panel beside them."""

import os
import socket

from sway_session import SECOND_SCREEN, SwaybarSession, WaybarSession, leave_root
from wayland_case import FIRST_TRACK, LONG_CLICK_SECONDS, BarTests, MusicTests, OtherWindowTests, WaylandCase
from wlroots_session import FIRST_SCREEN


def setUpModule():
    leave_root()


class SwayCase(WaylandCase):
    kind = WaybarSession


class SwayWaybarTest(BarTests, SwayCase):
    places = (("bottom", "left"), ("top", "center"), ("bottom", "center"), ("top", "right"))


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


class SwayNativeTest(OtherWindowTests, SwayCase):
    """Without Xwayland no program can say where its windows go."""

    environment = {"QT_QPA_PLATFORM": "wayland"}
    platforms = ("wayland",)

    def test_opens_as_a_small_window_in_the_middle(self):
        behind = self.screenshot("behind")
        self.open_panel()
        rectangle, floats = self.session.window("Mireval")
        self.assertTrue(floats)
        self.assert_seen(rectangle, behind, self.screenshot("opened"))
        left, top, width, height = rectangle
        area_left, area_top, area_width, area_height = self.session.work_area(self.icon)
        self.assertAlmostEqual(left + width / 2, area_left + area_width / 2, delta=2)
        self.assertAlmostEqual(top + height / 2, area_top + area_height / 2, delta=2)
        self.session.click(self.icon, hold=LONG_CLICK_SECONDS)
        self.assert_closes()

    def test_keys_reach_the_panel(self):
        self.open_panel()
        self.session.press_key("Tab")
        self.session.press_key("space")
        self.player.wait_for_text(FIRST_TRACK, 5)
        self.session.press_key("Escape")
        self.assert_closes()


class SwaySilentX11Test(SwayCase):
    """Xwayland accepts connections, but never answers."""

    known_errors = ("the X server does not answer; the windows are shown without it",)

    def setUp(self):
        self.server = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.server.close)
        # The number is that of this process, which no other display has.
        self.server.bind(f"\0/tmp/.X11-unix/X{os.getpid()}")
        self.server.listen()
        self.environment = {"DISPLAY": f":{os.getpid()}"}
        super().setUp()

    def test_wayland_takes_its_place(self):
        self.open_panel()
        self.assertIn(self.known_errors[0], self.player.errors)
        self.session.window("Mireval")


class SwayMusicTest(MusicTests, SwayCase):
    desktop = {"sound": True}
