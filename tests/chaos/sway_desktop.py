"""A Wayland desktop: sway, with waybar at the top or swaybar at the bottom."""

from functools import cached_property

from bars import Bar
from desktop_parts import DesktopParts
from sway_session import SwaybarSession
from wlroots_session import FIRST_SCREEN, SCREEN_SIZE, Waybar

PLAYER = "Mireval"


class SwayDesktop(DesktopParts, SwaybarSession):
    bar_kinds = ("waybar", "swaybar")
    bar_rows = {"waybar": range(0, 30), "swaybar": range(770, 800)}
    bus_bars = bar_kinds
    has_modifiers = False
    free_place = (60, 500)
    scales = (1, 1.5, 2)

    def __init__(self, screenshots):
        self.second_screen = None
        super().__init__(screenshots)
        self.start_bar("waybar")

    def start_bar(self, kind, on_second_screen=False):
        if kind == "waybar":
            Waybar.start_bar(self, screen=self.second_screen if on_second_screen else FIRST_SCREEN)
        else:
            super().start_bar("bottom")

    # Of waybar's configuration.
    layer = Waybar.layer

    def _run_bar(self, *command):
        self.bars[command[0]] = Bar(self, command, command[0])
        self.wait_for_tray()

    def focus_window(self, title):
        self.sway(f'[title="{title}"]', "focus")

    def close_window(self, title):
        self.sway(f'[title="{title}"]', "kill")

    def press_keys(self, *keys):
        for key in keys:
            self.press_key(key)

    def on_screen(self, place):
        """An ordinary window does not know where it is."""
        node = self._window(PLAYER)
        if node is None:
            return place
        panel = next(window for window in self.accessibility.windows(PLAYER) if window.name == PLAYER)
        left, top, _, _ = panel.extents
        rectangle, inside = node["rect"], node["window_rect"]
        return place[0] - left + rectangle["x"] + inside["x"], place[1] - top + rectangle["y"] + inside["y"]

    @cached_property
    def can_remove_screens(self):
        """Older versions of sway cannot."""
        return "Invalid output subcommand" not in self.run("swaymsg", "output", "none", "unplug").stdout

    def add_screen(self):
        """To the right of the first."""
        before = self._screen_names()
        self.sway("create_output")
        self.second_screen, = self._screen_names() - before
        self.sway("output", self.second_screen, "resolution", "{}x{}".format(*SCREEN_SIZE),
                  "position", str(SCREEN_SIZE[0]), "0")
        self._screens_size = (2 * SCREEN_SIZE[0], SCREEN_SIZE[1])

    def remove_screen(self):
        self.sway("output", self.second_screen, "unplug")
        self._screens_size = SCREEN_SIZE

    def _screen_names(self):
        return {output["name"] for output in self.ask_sway("get_outputs")}
