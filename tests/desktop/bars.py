"""The bars of desktops that have a place for tray icons."""

import os
import signal

from session import TRAY, children_of, wait_for

HORIZONTAL, VERTICAL = 0, 1
# For each edge of the screen: xfce4-panel's number of the position, and the bar's direction.
EDGES = {"top": (6, HORIZONTAL), "bottom": (8, HORIZONTAL), "left": (6, VERTICAL), "right": (2, VERTICAL)}


class Bar:
    def __init__(self, session, command, window_class, environment=None):
        self._session = session
        self._command = command
        self._class = window_class
        self._environment = environment
        self.start()

    def start(self):
        self._process = self._session.start(self._command, environment=self._environment)

    def kill(self):
        """Kills it, so that it cannot clean up."""
        self._process.kill()
        self._process.wait(10)

    def pids(self):
        """Of its processes: a tray may be one of its own."""
        return [self._process.pid, *children_of(self._process.pid)]

    def freeze(self):
        self._signal(signal.SIGSTOP)

    def thaw(self):
        self._signal(signal.SIGCONT)

    def _signal(self, number):
        for pid in self.pids():
            os.kill(pid, number)

    def end(self):
        """Kills all its processes, whatever they are doing."""
        self._signal(signal.SIGKILL)
        self._process.wait(10)

    def wait_for_end(self, seconds=10):
        """Waits until it ends by itself."""
        self._process.wait(seconds)

    def rectangle(self):
        """Left, top, width and height of its window; None while there is none."""
        shown = [self._session.rectangle(window) for window in self._session.windows("--class", self._class)]
        return max(filter(None, shown), key=lambda rectangle: rectangle[2] * rectangle[3], default=None)


class XfcePanel(Bar):
    """Shows icons by D-Bus and icons embedded by X11."""

    def __init__(self, session, *, thickness=26, environment=None):
        session.configure_panel(thickness, TRAY.format(icon=thickness - 4))
        super().__init__(session, ["xfce4-panel", "--disable-wm-check"], "xfce4-panel", environment)

    def start(self):
        super().start()
        wait_for(self._session.has_tray, "the tray", 30)

    def kill(self):
        super().kill()
        wait_for(lambda: not self._session.has_tray(), "the tray to go")

    def _set(self, name, value):
        result = self._session.run("xfconf-query", "--channel", "xfce4-panel", "--property", name, "--set", value)
        assert result.returncode == 0, (name, value, result.stderr)

    def move(self, edge, *, at_end=False):
        """To an edge of the screen, with the icon in its middle or at its right or lower end."""
        position, mode = EDGES[edge]
        self._set("/panels/panel-1/mode", str(mode))
        self._set("/panels/panel-1/position", f"p={position};x=0;y=0")
        self._set("/plugins/plugin-3/expand", str(not at_end).lower())


TINT2_CONFIGURATION = """
rounded = 0
border_width = 0
background_color = #{colour:06x} 100
panel_items = S
panel_position = bottom center horizontal
panel_size = 100% 30
panel_background_id = 1
strut_policy = follow_size
systray_padding = 4 3 4
systray_icon_size = 22
systray_icon_asb = 100 0 0
"""


class Tint2(Bar):
    """At the bottom, with the icon at its left end. Shows only icons embedded by X11."""

    def __init__(self, session, colour):
        configuration = session.folder / "tint2rc"
        configuration.write_text(TINT2_CONFIGURATION.format(colour=colour))
        super().__init__(session, ["tint2", "-c", configuration], "tint2")
        wait_for(self.rectangle, "the bar")
