"""A Wayland desktop: sway, with waybar at the top or swaybar at the bottom."""

from functools import cached_property

from bars import Bar
from desktop_parts import DesktopParts
from screen import SHADOW
from sway_session import SwaybarSession
from wlroots_session import FIRST_SCREEN, SCREEN_SIZE, Waybar

PLAYER = "Mireval"
PAPERS = ((255, 255, 255), (0, 0, 0))
# The height of the higher bar, in pixels.
LARGEST_SHIFT = 28


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
        panel = next(window for window in self.accessibility.windows(PLAYER) if window.name == PLAYER)
        left, top, width, height = panel.extents
        node = self._window(PLAYER)
        if node is None:
            return place[0], place[1] + self._shift(left + width // 2, top + SHADOW, top + height - SHADOW)
        # An ordinary window does not know where it is.
        rectangle, inside = node["rect"], node["window_rect"]
        return place[0] - left + rectangle["x"] + inside["x"], place[1] - top + rectangle["y"] + inside["y"]

    def _shift(self, x, top, bottom):
        """How much lower the panel is seen than it knows. It does not know at which edge a bar is that it has not been
        opened from.
        """
        picture = self.picture()

        def is_paper(y):
            return 0 <= y < picture.height and picture.pixel(x, y) in PAPERS
        for shift in sorted(range(-LARGEST_SHIFT, LARGEST_SHIFT + 1), key=abs):
            if is_paper(top + shift + 4) and is_paper(bottom + shift - 4) and not (
                    is_paper(top + shift - 2) or is_paper(bottom + shift + 2)):
                return shift
        return 0

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
