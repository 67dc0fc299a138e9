"""Private Plasma desktops: the whole of the screen, its bar and its services, on X11 and on Wayland.

Positions and pictures are in the screen's pixels, whatever the scale.
"""

import re
import shutil
import subprocess
import time
from pathlib import Path

from session import BUTTONS, Session, wait_for

VERSION = 6 if shutil.which("kded6") else 5
# In the desktop's own units.
WIDTH, HEIGHT = 1280, 800
BACKGROUND = (0x2F, 0x6F, 0x4F)
# In parts of the screen.
FREE_PLACE = (0.1, 0.2)
SET_BACKGROUND = """
for (const desktop of desktops()) {{
  desktop.wallpaperPlugin = "org.kde.color";
  desktop.currentConfigGroup = ["Wallpaper", "org.kde.color", "General"];
  desktop.writeConfig("Color", "{colour}");
}}
"""
MOVE_BAR = """
const bar = panels()[0];
bar.location = "{edge}";
bar.alignment = "center";
{length}
"""
# Plasma 5 has no bar as short as its contents.
SHORT_BAR, LONG_BAR = {
    5: ("bar.minimumLength = bar.maximumLength = 500;",
        "bar.maximumLength = bar.minimumLength = screenGeometry(bar.screen).width;"),
    6: ('bar.lengthMode = "fit";', 'bar.lengthMode = "fill";')}[VERSION]
PLASMA_SHELL = ("org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell")


class PlasmaSession(Session):
    """What X11 and Wayland have in common."""

    kind = None

    def __init__(self, screenshots, *, scale=1, **options):
        self.scale = scale
        # Of the screen.
        self.size = round(WIDTH * scale), round(HEIGHT * scale)
        options.setdefault("screen_size", "{}x{}".format(*self.size))
        super().__init__(screenshots, tray=False, **options)

    def _start_screen(self):
        self._start_x_server()
        self.environment.update({
            "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
            "KDE_SESSION_VERSION": str(VERSION), "XDG_SESSION_TYPE": self.kind})
        # For screenshots and xdotool, if the programs get another display.
        self._screen_environment = dict(self.environment)
        self._start_window_manager()
        # The bus was started first, and starts services of the desktop.
        self._succeed("dbus-update-activation-environment", "--all")
        self._start_in_session(f"kded{VERSION}")
        self._start_in_session("plasmashell")
        self.wait_for_tray()
        wait_for(self._set_background, "the desktop's background", 90)

    def _start_window_manager(self):
        """Starts the window manager or compositor, and waits until programs can open windows."""
        raise NotImplementedError

    def _start_in_session(self, command):
        self.start([command])

    def _resolution(self):
        """The fonts' resolution in dots per inch, as X11 programs are told; None if it is not set."""
        lines = self._succeed("xrdb", "-query").splitlines()
        return next((int(line.split()[1]) for line in lines if line.startswith("Xft.dpi:")), None)

    def _wait_for_resolution(self, scale):
        wait_for(lambda: self._resolution() == round(96 * scale), "the fonts' resolution", 30)

    def _succeed(self, *command):
        result = self.run(*command)
        assert result.returncode == 0, (command, result.stdout, result.stderr)
        return result.stdout

    def _set_background(self):
        """Whether it is seen. The shell may lose a command that it gets before it has drawn its desktop, and a repeated
        one restarts the slow change of colour."""
        self._tell_shell(SET_BACKGROUND.format(colour=",".join(map(str, BACKGROUND))))
        limit = time.monotonic() + 5
        while time.monotonic() < limit:
            if self.screenshot("desktop").pixel(*self.free_place) == BACKGROUND:
                return True
            time.sleep(0.2)
        return False

    def _tell_shell(self, script):
        self.run("busctl", "--user", "call", *PLASMA_SHELL, "evaluateScript", "s", script)

    def shorten_bar(self, edge):
        """Makes it short and moves it to the middle of an edge: there an icon is far from all corners."""
        self._tell_shell(MOVE_BAR.format(edge=edge, length=SHORT_BAR))

    def restore_bar(self):
        self._tell_shell(MOVE_BAR.format(edge="bottom", length=LONG_BAR))

    @property
    def free_place(self):
        """On no bar, and not where the panel opens."""
        x, y = FREE_PLACE
        return round(self.size[0] * x), round(self.size[1] * y)

    def work_area(self):
        """The screen without the bar, as X11 programs are told: left, top, width and height."""
        values = self._succeed("xprop", "-root", "_NET_WORKAREA").partition("=")[2].split(",")
        return tuple(map(int, values[:4]))

    def _run_on_screen(self, *command):
        result = subprocess.run(command, env=self._screen_environment, capture_output=True, text=True, timeout=20)
        assert result.returncode == 0, (command, result.stderr)
        return result.stdout

    def move_pointer(self, position):
        self._run_on_screen("xdotool", "mousemove", *map(str, position))
        # The tray needs a moment to see that the pointer has come.
        time.sleep(0.1)

    def click(self, position, *, button="left", hold=0.05):
        self.move_pointer(position)
        number = str(BUTTONS[button])
        self._run_on_screen("xdotool", "mousedown", number, "sleep", str(hold), "mouseup", number)

    def press_key(self, key):
        self._run_on_screen("xdotool", "key", key)


class PlasmaX11Session(PlasmaSession):
    """It is scaled as by Plasma's settings: they write a file, of which the session's start makes a variable for Qt's
    programs, and the fonts' resolution, which X11 programs read from the server."""

    kind = "x11"

    def _start_window_manager(self):
        if self.scale != 1:
            self._set_scale()
        self.start(["kwin_x11"])
        wait_for(lambda: self.run("xdotool", "get_desktop").returncode == 0, "the window manager", 30)

    def _set_scale(self):
        # Xvfb calls its screen so.
        self.environment.update({"QT_SCREEN_SCALE_FACTORS": f"screen={self.scale};",
                                 "QT_AUTO_SCREEN_SCALE_FACTOR": "0"})
        Path(self.environment["XDG_CONFIG_HOME"], "kcmfonts").write_text(
            f"[General]\nforceFontDPI={round(96 * self.scale)}\n", encoding="utf-8")
        self._succeed("kcminit", "kcm_fonts_init")
        self._wait_for_resolution(self.scale)


class PlasmaWaylandSession(PlasmaSession):
    """Its compositor draws into a window that fills the screen of an X server, and runs another one for X11 programs,
    which scale themselves. So Plasma has it by default."""

    kind = "wayland"
    screen_count = 1

    def __init__(self, screenshots, **options):
        self._compositor = None
        super().__init__(screenshots, **options)

    def _start_window_manager(self):
        announcement = self.folder / "display"
        announce = self.folder / "announce"
        announce.write_text(f"#!/bin/sh\necho $DISPLAY $WAYLAND_DISPLAY > {announcement}\n", encoding="utf-8")
        announce.chmod(0o700)
        self._compositor = self.start([
            "kwin_wayland", "--x11-display", self.environment["DISPLAY"], "--width", str(self.size[0]),
            "--height", str(self.size[1]), "--output-count", str(self.screen_count), "--xwayland", "--no-lockscreen",
            announce])
        displays = wait_for(lambda: announcement.exists() and announcement.read_text(encoding="utf-8").split(),
                            "the compositor", 60)
        self.environment["DISPLAY"], self.environment["WAYLAND_DISPLAY"] = displays
        if self.scale != 1:
            self.set_scale(self.scale)

    def set_scale(self, scale):
        """As Plasma's settings do. The screen keeps its number of pixels."""
        self.scale = scale
        self._configure_screens(f"output.1.scale.{scale}")
        self._wait_for_resolution(scale)

    def _configure_screens(self, *settings):
        self._succeed("env", "QT_QPA_PLATFORM=wayland", "kscreen-doctor", *settings)

    def _start_in_session(self, command):
        self.start([command], environment={"QT_QPA_PLATFORM": "wayland"})

    def end(self):
        # Killed, it would leave the X display's lock and sockets behind.
        if self._compositor:
            self._compositor.terminate()
            self._compositor.wait(20)
        super().end()


class PlasmaWaylandScreensSession(PlasmaWaylandSession):
    """A second screen to the right of the first, of as many pixels, but with twice as many for each of the desktop's
    units. X11 programs count in the second's pixels on both. The bar is on the first."""

    screen_count = 2
    SECOND_SCALE = 2

    def __init__(self, screenshots, **options):
        super().__init__(screenshots, screen_size=f"{2 * WIDTH}x{HEIGHT}", **options)

    def _start_window_manager(self):
        super()._start_window_manager()
        # The two are windows one on top of the other; the second is the younger one.
        windows = re.findall('(0x[0-9a-f]+) "KDE Wayland', self._run_on_screen("xwininfo", "-root", "-children"))
        assert len(windows) == self.screen_count, windows
        second = max(windows, key=lambda window: int(window, 16))
        self._run_on_screen("xdotool", "windowmove", second, str(WIDTH), "0")
        self._configure_screens("output.1.position.0,0", f"output.2.position.{WIDTH},0",
                                f"output.2.scale.{self.SECOND_SCALE}")
        self._wait_for_resolution(self.SECOND_SCALE)
