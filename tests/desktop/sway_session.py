"""A private Wayland desktop: sway, which draws into memory, with Xwayland, a bar, and a pointer and a keyboard that a
program moves.
"""

import json
import os
import pwd
import subprocess
import sys
import time

from screen import Screenshot
from session import Session

VIRTUAL_INPUT = os.environ["MIREVAL_VIRTUAL_INPUT"]
FIRST_SCREEN, SECOND_SCREEN = "HEADLESS-1", "HEADLESS-2"
SCREEN_SIZE = (1280, 800)
BACKGROUND = (0x2F, 0x6F, 0x4F)
# Without a command of its own sway would start the bar, and no test could end and restart it.
CONFIGURATION = """
output {screen} resolution {size} position 0,0
output * background {background} solid_color
exec echo "$DISPLAY" "$WAYLAND_DISPLAY" > /dev/fd/$ANNOUNCE
bar {{
  tray_output *
  swaybar_command true
}}
"""
WAYBAR_STYLE = "* { border-radius: 0; } window#waybar { background: #202020; }"


def leave_root():
    """Starts the program anew as an ordinary user who may still do with all files what root may: sway refuses to
    run as root."""
    if os.geteuid() == 0:
        # Message buses do not start for a user whom the system does not know; this one is on every Debian.
        user = pwd.getpwnam("daemon")
        os.execvp("unshare", ["unshare", "--user", f"--map-user={user.pw_uid}", f"--map-group={user.pw_gid}",
                              sys.executable, "-B", *sys.argv])


class SwaySession(Session):
    """What the kinds of bars have in common. There is none until `start_bar`."""

    def __init__(self, screenshots, **options):
        self._sway = self._bar = None
        self._screens_size = SCREEN_SIZE
        super().__init__(screenshots, tray=False, **options)

    def _start_screen(self):
        configuration = self.folder / "sway.conf"
        configuration.write_text(CONFIGURATION.format(screen=FIRST_SCREEN, size="{}x{}".format(*SCREEN_SIZE),
                                                      background="#{:02x}{:02x}{:02x}".format(*BACKGROUND)))
        self.environment.update({"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1",
                                 "WLR_RENDERER": "pixman", "SWAYSOCK": str(self.folder / "sway.socket")})
        self._sway, displays = self._start_announcing("sh", "-c", f"ANNOUNCE={{}} exec sway -c {configuration}")
        self.environment["DISPLAY"], self.environment["WAYLAND_DISPLAY"] = displays.split()
        self._input = self.start([VIRTUAL_INPUT], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def end(self):
        # Killed, it would leave the X display's lock and sockets behind.
        if self._sway:
            self._sway.terminate()
            self._sway.wait(10)
        super().end()

    def sway(self, *command):
        result = self.run("swaymsg", *command)
        assert result.returncode == 0, (command, result.stdout, result.stderr)
        return result.stdout

    def ask_sway(self, kind):
        return json.loads(self.sway("-t", kind, "-r"))

    def work_area(self, position):
        """What bars leave of the screen at a position: left, top, width and height."""
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

    def set_scale(self, scale):
        """Gives the first screen so many pixels for one of the desktop's own, of which it keeps its number."""
        self.sway("output", FIRST_SCREEN, "resolution", "{}x{}".format(*(scale * side for side in SCREEN_SIZE)),
                  "scale", str(scale))

    def window(self, title):
        """Left, top, width and height of the Wayland window with the title, and whether it floats; None if there is
        no such window.
        """
        nodes = [self.ask_sway("get_tree")]
        while nodes:
            node = nodes.pop()
            if node["name"] == title and node.get("pid"):
                place = node["rect"]
                return (place["x"], place["y"], place["width"], place["height"]), node["type"] == "floating_con"
            nodes += node["nodes"] + node["floating_nodes"]
        return None

    def _run_bar(self, *command):
        self._bar = self.start(command)
        self.wait_for_tray()

    def stop_bar(self):
        self._bar.kill()
        self._bar.wait(10)

    def screenshot(self, name):
        # One pixel for each of the desktop's own, whatever the scale of the screens.
        shot = Screenshot(self.environment, ("grim", "-s", "1", "-t", "ppm", "-"))
        shot.save(self._screenshots / f"{name}.png")
        return shot

    def _input_command(self, *words):
        self._input.stdin.write(" ".join(map(str, words)) + "\n")
        self._input.stdin.flush()
        if self._input.stdout.readline() != "done\n":
            raise AssertionError(f"the virtual input has failed at {words}")

    def move_pointer(self, position):
        # No pointer arrives with a single motion, and Xwayland takes the first one in its windows for the place that
        # the pointer has come from.
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


class WaybarSession(SwaySession):
    """Its tray may be at either end of the bar or in its middle: `left`, `right` or `center`."""

    def start_bar(self, edge="top", place="right", screen=FIRST_SCREEN):
        configuration = {"layer": "top", "output": screen, "position": edge, "height": 28,
                         f"modules-{place}": ["tray"], "tray": {"icon-size": 20}}
        (self.folder / "waybar.json").write_text(json.dumps(configuration), encoding="utf-8")
        (self.folder / "waybar.css").write_text(WAYBAR_STYLE, encoding="utf-8")
        self._run_bar("waybar", "-c", str(self.folder / "waybar.json"), "-s", str(self.folder / "waybar.css"))


class SwaybarSession(SwaySession):
    """Its tray is at the right end of the bar."""

    def start_bar(self, edge="top"):
        self.sway("bar", "bar-0", "position", edge)
        self._run_bar("swaybar", "-b", "bar-0")
