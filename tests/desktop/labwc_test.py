"""Uses the player on a Wayland desktop that stacks its windows: the icon in waybar, and the panel beside it."""

from labwc_session import LabwcSession
from wayland_case import BarTests, MusicTests, WaylandCase


class LabwcCase(WaylandCase):
    kind = LabwcSession


class LabwcWaybarTest(BarTests, LabwcCase):
    places = (("bottom", "left"), ("top", "center"), ("bottom", "center"), ("top", "right"))


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
