"""An X11 desktop: openbox, xfce4-panel at the top, and tint2 at the bottom."""

from bars import Tint2, XfcePanel
from desktop_parts import DesktopParts
from session import Session

TINT2_COLOUR = 0x101010


class X11Desktop(DesktopParts, Session):
    bar_kinds = ("xfce", "tint2")
    bar_rows = {"xfce": range(0, 30), "tint2": range(770, 800)}
    bus_bars = ("xfce",)
    bars_with_menu = ("xfce",)
    bars_share = True

    def __init__(self, screenshots):
        super().__init__(screenshots, tray=False)
        self.start_bar("xfce")

    def start_bar(self, kind):
        if kind in self.bars:
            self.bars[kind].start()
        else:
            self.bars[kind] = XfcePanel(self) if kind == "xfce" else Tint2(self, TINT2_COLOUR)

    def focus_window(self, title):
        """Gives the keyboard to the window whose title matches."""
        window, = self.windows("--name", title)
        self.focus(window)

    def close_window(self, title):
        self.focus_window(title)
        self.press_keys("alt+F4")

    def press_keys(self, *keys):
        self.run("xdotool", "key", *keys)

    def add_screen(self):
        """Divides the screen in two; xfce4-panel is on the first."""
        self._set_monitor("*left", "800/200x800/200+0+0", "screen")
        self._set_monitor("right", "480/120x800/200+800+0", "none")

    def remove_screen(self):
        for name in ("left", "right"):
            self.run("xrandr", "--delmonitor", name)

    def _set_monitor(self, *arguments):
        result = self.run("xrandr", "--setmonitor", *arguments)
        if result.returncode:
            raise AssertionError(result.stderr)
