"""A private Wayland desktop: sway, with either of its bars."""

import json
import os
import sys

from wlroots_session import (ANNOUNCE_DISPLAYS, BACKGROUND_COLOUR, FIRST_SCREEN, SCREEN_SIZE, Waybar,
                             WlrootsSession, hexadecimal)

SECOND_SCREEN = "HEADLESS-2"
# Without a command of its own sway would start the bar, and no test could end and restart it.
CONFIGURATION = """
xwayland {xwayland}
output {screen} resolution {size} position 0,0
output * background {background} solid_color
exec {announce}
bar {{
  tray_output *
  swaybar_command true
}}
"""


def leave_root():
    """Restarts the program as an ordinary user with root's access to files: sway refuses to run as root."""
    if os.geteuid() == 0:
        # Message buses do not start for a user without a name; this one is on every Debian.
        os.execvp("unshare", ["unshare", "--user", "--map-user=daemon", "--map-group=daemon", *sys.orig_argv])


class SwaySession(WlrootsSession):
    """What the kinds of bars have in common."""

    # Whether there is an X server.
    xwayland = False

    def _start_screen(self):
        configuration = self.folder / "sway.conf"
        configuration.write_text(CONFIGURATION.format(
            xwayland="enable" if self.xwayland else "disable",
            screen=FIRST_SCREEN, size="{}x{}".format(*SCREEN_SIZE), background=hexadecimal(BACKGROUND_COLOUR),
            announce=ANNOUNCE_DISPLAYS))
        self.environment["SWAYSOCK"] = str(self.folder / "sway.socket")
        self._start_compositor(f"sway -c {configuration}")

    def sway(self, *command):
        result = self.run("swaymsg", *command)
        assert result.returncode == 0, (command, result.stdout, result.stderr)
        return result.stdout

    def ask_sway(self, kind):
        return json.loads(self.sway("-t", kind, "-r"))

    def work_area(self, position):
        """The screen at a position without its bars: left, top, width and height."""
        for output in self.ask_sway("get_outputs"):
            screen = output["rect"]
            if 0 <= position[0] - screen["x"] < screen["width"] and 0 <= position[1] - screen["y"] < screen["height"]:
                area = next(workspace["rect"] for workspace in self.ask_sway("get_workspaces")
                            if workspace["visible"] and workspace["output"] == output["name"])
                return area["x"], area["y"], area["width"], area["height"]
        raise AssertionError(f"there is no screen at {position}")

    def add_screen(self):
        """A second screen of the same size to the right of the first."""
        self.sway("create_output")
        self.sway("output", SECOND_SCREEN, "resolution", "{}x{}".format(*SCREEN_SIZE),
                  "position", str(SCREEN_SIZE[0]), "0")
        self._screens_size = (2 * SCREEN_SIZE[0], SCREEN_SIZE[1])

    def remove_screen(self):
        """The second one."""
        self.sway("output", SECOND_SCREEN, "unplug")
        self._screens_size = SCREEN_SIZE

    def set_scale(self, scale):
        """Gives the first screen so many pixels for one of the desktop's own, of which it keeps its number."""
        self.sway("output", FIRST_SCREEN, "resolution", "{}x{}".format(*(round(scale * side) for side in SCREEN_SIZE)),
                  "scale", str(scale))

    def _window(self, title):
        nodes = [self.ask_sway("get_tree")]
        while nodes:
            node = nodes.pop()
            if node["name"] == title and node.get("pid"):
                return node
            nodes += node["nodes"] + node["floating_nodes"]
        return None

    def window(self, title):
        """Left, top, width and height of the Wayland window with the title, and whether it floats; None if there is
        no such window.
        """
        node = self._window(title)
        if node is None:
            return None
        place = node["rect"]
        return (place["x"], place["y"], place["width"], place["height"]), node["type"] == "floating_con"

    def has_keyboard(self, title):
        return self._window(title)["focused"]


class WaybarSession(Waybar, SwaySession):
    pass


class SwaybarSession(SwaySession):
    """Its tray is at the right end of the bar."""

    def start_bar(self, edge="top"):
        self.sway("bar", "bar-0", "position", edge)
        self._run_bar("swaybar", "-b", "bar-0")
