"""Private Wayland desktops that build on wlroots: they draw into memory, with Xwayland, a bar, and a pointer and a
keyboard that a program moves.
"""

import json
import os
import subprocess
import time

from screen import Screenshot
from session import Session

VIRTUAL_INPUT = os.environ["MIREVAL_VIRTUAL_INPUT"]
FIRST_SCREEN = "HEADLESS-1"
SCREEN_SIZE = (1280, 800)
BACKGROUND_COLOUR = (0x2F, 0x6F, 0x4F)
BAR_COLOUR = (0x20, 0x20, 0x20)


def hexadecimal(colour):
    return "#{:02x}{:02x}{:02x}".format(*colour)


# Tells the desktop's displays, as a line of a shell script.
ANNOUNCE_DISPLAYS = 'echo "$WAYLAND_DISPLAY" "$DISPLAY" > /dev/fd/$ANNOUNCE'
WAYBAR_STYLE = f"* {{ border-radius: 0; }} window#waybar {{ background: {hexadecimal(BAR_COLOUR)}; }}"


class WlrootsSession(Session):
    """What the desktops and their bars have in common. There is no bar until `start_bar`."""

    def __init__(self, screenshots, **options):
        self._compositor = self._bar = None
        self._screens_size = SCREEN_SIZE
        super().__init__(screenshots, tray=False, **options)

    def _start_compositor(self, command):
        """Starts the desktop by a shell's command; in the end it has to do what `ANNOUNCE_DISPLAYS` says."""
        # No pointer of a theme: those are larger and throw shadows, which tests would take for the panel's.
        self.environment.update({"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1",
                                 "WLR_RENDERER": "pixman", "XCURSOR_PATH": str(self.folder)})
        self._compositor, displays = self._start_announcing("sh", "-c", f"ANNOUNCE={{}} exec {command}")
        self.environment["WAYLAND_DISPLAY"], *x11 = displays.split()
        if x11:
            self.environment["DISPLAY"], = x11
        else:
            self.environment.pop("DISPLAY", None)
        self._input = self.start([VIRTUAL_INPUT], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def end(self):
        # Killed, it would leave the X display's lock and sockets behind.
        if self._compositor:
            self._compositor.terminate()
            self._compositor.wait(10)
        super().end()

    def _run_bar(self, *command):
        self._bar = self.start(command)
        self.wait_for_tray()

    def stop_bar(self):
        self._bar.kill()
        self._bar.wait(10)

    def _capture(self):
        # One pixel for each of the desktop's own, whatever the scale of the screens.
        return self.capture_at(1)

    def capture_at(self, scale):
        """A picture with so many pixels for each of the desktop's own."""
        return Screenshot.by_command(self.environment, "grim", "-s", str(scale), "-t", "ppm", "-")

    def _input_command(self, *words):
        self._input.stdin.write(" ".join(map(str, words)) + "\n")
        self._input.stdin.flush()
        if self._input.stdout.readline() != "done\n":
            raise AssertionError(f"the virtual input has failed at {words}")

    def move_pointer(self, position):
        # Real pointers need several motions, and Xwayland takes the first one in its windows for the old place.
        x, y = position
        for place in ((x - 1, y), (x, y)):
            self._input_command("move", *place, *self._screens_size)

    def click(self, position, *, button="left", hold=0.1):
        self.move_pointer(position)
        # The tray needs a moment to see that the pointer has come.
        time.sleep(0.1)
        self._input_command("press", button)
        time.sleep(hold)
        self._input_command("release", button)

    def scroll(self, notches):
        self._input_command("scroll", notches)

    def press_key(self, key):
        self._input_command("type", key)


class Waybar:
    """The bar of a session. Its tray may be at either end or in the middle: `left`, `right` or `center`."""

    layer = "top"

    def start_bar(self, edge="top", place="right", screen=FIRST_SCREEN):
        configuration = {"layer": self.layer, "output": screen, "position": edge, "height": 28,
                         f"modules-{place}": ["tray"], "tray": {"icon-size": 20}}
        (self.folder / "waybar.json").write_text(json.dumps(configuration), encoding="utf-8")
        (self.folder / "waybar.css").write_text(WAYBAR_STYLE, encoding="utf-8")
        self._run_bar("waybar", "-c", str(self.folder / "waybar.json"), "-s", str(self.folder / "waybar.css"))
