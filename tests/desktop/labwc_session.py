"""A private Wayland desktop: labwc, which stacks windows, with waybar."""

from png import write_png
from wlroots_session import (ANNOUNCE_DISPLAYS, BACKGROUND_COLOUR, BAR_COLOUR, FIRST_SCREEN, SCREEN_SIZE, Waybar,
                             WlrootsSession)


class LabwcSession(Waybar, WlrootsSession):
    def _start_screen(self):
        folder = self.folder / "labwc"
        folder.mkdir()
        (folder / "autostart").write_text(ANNOUNCE_DISPLAYS + "\n", encoding="utf-8")
        self._start_compositor(f"labwc --config-dir {folder}")
        self.set_scale(1)
        # A picture of one pixel, or only a colour, would be smoothed from there to the screen's edges.
        picture = self.folder / "background.png"
        write_png(picture, *SCREEN_SIZE, bytes(BACKGROUND_COLOUR) * SCREEN_SIZE[0] * SCREEN_SIZE[1])
        self.start(["swaybg", "--mode", "stretch", "--image", picture])

    def set_scale(self, scale):
        """Gives the screen so many pixels for one of the desktop's own, of which it keeps its number."""
        size = "{}x{}".format(*(round(scale * side) for side in SCREEN_SIZE))
        result = self.run("wlr-randr", "--output", FIRST_SCREEN, "--custom-mode", size, "--scale", str(scale))
        assert result.returncode == 0, (size, result.stderr)

    def work_area(self, position):
        """The screen without the bar: left, top, width and height. labwc does not tell, so this looks for the
        background at the side that is farther from the position, where neither icons nor the panel are.
        """
        shot = self.screenshot("work-area")
        x = 2 if position[0] > shot.width // 2 else shot.width - 3
        # Scaled pictures have mixed colours at their edges. The bar is darker.
        is_background = [shot.pixel(x, y)[1] > (BACKGROUND_COLOUR[1] + BAR_COLOUR[1]) // 2 for y in range(shot.height)]
        above, below = is_background.index(True), is_background[::-1].index(True)
        return 0, above, shot.width, shot.height - above - below
