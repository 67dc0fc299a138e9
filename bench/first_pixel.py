"""How soon the panel shows after a click on the icon, on X11."""

import ctypes
import mmap
import statistics
import struct
import time

from player import Player
from session import wait_for

# Left of the icon, well within the panel.
OFFSET = (-20, 200)
OPENINGS = 10


class Screen:
    """Looks at one pixel of Xvfb's screen, in its memory: that costs the X server no time."""

    def __init__(self, session, place):
        with open(session.folder / "Xvfb_screen0", "rb") as file:
            self._memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        size, line, colours = (struct.unpack_from(">I", self._memory, 4 * field)[0] for field in (0, 12, 19))
        x, y = place
        self._start = size + 12 * colours + y * line + 4 * x

    def pixel(self):
        return self._memory[self._start:self._start + 3]


class Mouse:
    """Clicks without a process of its own, so that the moment of the click is known."""

    def __init__(self, session):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._xtst = ctypes.CDLL("libXtst.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._x11.XOpenDisplay(session.environment["DISPLAY"].encode()))

    def click(self):
        """Returns when the click is on its way to the X server."""
        for pressed in (True, False):
            self._xtst.XTestFakeButtonEvent(self._display, 1, pressed, ctypes.c_ulong(0))
        self._x11.XFlush(self._display)

    def close(self):
        self._x11.XCloseDisplay(self._display)


def _milliseconds_to_change(screen, mouse):
    before = screen.pixel()
    begin = time.monotonic()
    mouse.click()
    while screen.pixel() == before:
        assert time.monotonic() - begin < 5, "the panel does not open"
        time.sleep(0.0005)
    return 1000 * (time.monotonic() - begin)


def milliseconds_to_panel(session, program):
    """Of the first opening after the start; and of the later ones, median and worst."""
    player = Player(session, program)
    icon = player.find_icon()
    screen = Screen(session, (icon[0] + OFFSET[0], icon[1] + OFFSET[1]))
    empty = screen.pixel()
    mouse = Mouse(session)
    times = []
    for _ in range(OPENINGS):
        session.move_pointer(icon)
        time.sleep(0.5)
        times.append(_milliseconds_to_change(screen, mouse))
        time.sleep(0.5)
        session.press_key("Escape")
        wait_for(lambda: screen.pixel() == empty, "the panel to close")
    mouse.close()
    player.process.kill()
    player.process.wait()
    return times[0], (statistics.median(times[1:]), max(times[1:]))
