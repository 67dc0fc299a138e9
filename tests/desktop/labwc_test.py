"""Uses the player on a Wayland desktop that stacks its windows: the icon in waybar, and the panel beside it."""

import unittest

from labwc_session import LabwcSession
from wayland_case import BarTests, MusicTests, WaylandCase
from wlroots_session import SCREEN_SIZE


class LabwcCase(WaylandCase):
    kind = LabwcSession


class LabwcWaybarTest(BarTests, LabwcCase):
    places = (("bottom", "left"), ("top", "center"), ("bottom", "center"), ("top", "right"))


class TopLayerSession(LabwcSession):
    layer = "top"


class LabwcTopLayerTest(LabwcCase):
    """The bar is above all windows. On labwc, but not on sway, that includes windows of X11 programs, so the player
    cannot find out where the pointer was on the bar.
    """

    kind = TopLayerSession

    @unittest.expectedFailure
    def test_opens_beside_the_icon(self):
        self.restart_bar(self.edge, "center")
        self.assert_opens_beside_icon(self.edge, "opened")

    def test_opens_in_the_corner_beside_the_bar(self):
        self.restart_bar(self.edge, "right")
        behind = self.screenshot("behind")
        rectangle = self.open_panel()
        self.assert_seen(rectangle, behind, self.screenshot("opened"))
        self.assert_beside_icon(rectangle, self.edge)
        self.session.press_key("Escape")
        self.assert_closes()

    @unittest.expectedFailure
    def test_click_on_the_bar_closes(self):
        self.restart_bar(self.edge, "right")
        self.open_panel()
        self.session.click((SCREEN_SIZE[0] // 2, self.icon[1]))
        self.assert_closes()


class LabwcScalesTest(LabwcCase):
    """One screen with more pixels than the desktop counts."""

    def test_opens_beside_the_icon_at_every_scale(self):
        self.addCleanup(self.session.set_scale, 1)
        for scale in (1.5, 2):
            for edge, place in (("top", "right"), ("bottom", "center")):
                with self.subTest(scale=scale, edge=edge):
                    self.session.set_scale(scale)
                    self.restart_bar(edge, place)
                    self.assert_opens_beside_icon(edge, f"{scale}-{edge}-{place}")


class LabwcMusicTest(MusicTests, LabwcCase):
    desktop = {"sound": True}
