#!/usr/bin/env python3
"""Prints what the panel costs on a Wayland desktop: as a layer, and beside it through Xwayland, in one run.

usage: wayland_bench.py BUILD_FOLDER
"""

import statistics
import sys
import time
from pathlib import Path

from cost import memory
from player import Player
from screen import Screenshot
from session import wait_for
from startup import compare_starts, turn_off_screen_reader
from sway_session import WaybarSession, leave_root
from table import Row, print_table
from wlroots_session import BACKGROUND_COLOUR, SCREEN_SIZE

BUILD = Path(sys.argv[1]).resolve()
STARTS = 5
OPENINGS = 9
# Within the panel, which is below the icon.
PLACE = (SCREEN_SIZE[0] // 2, 100)


class DesktopWithBoth(WaybarSession):
    xwayland = True


def shows_panel(session):
    area = f"{PLACE[0]},{PLACE[1]} 1x1"
    shot = Screenshot.by_command(session.environment, "grim", "-g", area, "-t", "ppm", "-")
    return shot.pixel(0, 0) != BACKGROUND_COLOUR


def milliseconds_to_panel(session, icon):
    """From the release of the button to the panel on the screen, which is looked at every few milliseconds."""
    session.click(icon)
    begin = time.monotonic()
    while not shows_panel(session):
        assert time.monotonic() - begin < 5, "the panel does not open"
    return 1000 * (time.monotonic() - begin)


def measure(session, platform):
    """The figures of one platform of Qt, in the order of the rows."""
    environment = {"QT_QPA_PLATFORM": platform}
    player_start, empty_run = compare_starts(session, BUILD, STARTS, environment)
    player = Player(session, BUILD / "mireval", environment=environment)
    icon = player.find_icon()
    time.sleep(2)
    idle = memory(player.process.pid)
    times = []
    for _ in range(OPENINGS + 1):
        times.append(milliseconds_to_panel(session, icon))
        time.sleep(0.5)
        opened = memory(player.process.pid)
        session.press_key("Escape")
        wait_for(lambda: not shows_panel(session), "the panel to close")
        time.sleep(0.3)
    player.process.kill()
    player.process.wait()
    first, *later = times
    return player_start, empty_run, first, (statistics.median(later), max(later)), *idle, *opened


def main():
    leave_root()
    session = DesktopWithBoth(BUILD / "bench" / "screenshots", sound=False)
    try:
        turn_off_screen_reader(session)
        session.start_bar("top", "center")
        session.move_pointer((60, 500))
        figures = {"layer": measure(session, "wayland"), "Xwayland": measure(session, "xcb")}
    finally:
        session.end()
    names = ("start to icon registered, ms", "empty QGuiApplication, ms", "click to panel, first opening, ms",
             "click to panel, later openings, ms", "own memory MB, idle", "resident MB, idle",
             "own memory MB, panel open", "resident MB, panel open")
    print_table("The panel on a Wayland desktop, as a layer and through Xwayland: median / worst", figures,
                [Row(name, dict(zip(figures, values))) for name, values in zip(names, zip(*figures.values()))])


if __name__ == "__main__":
    sys.exit(main())
