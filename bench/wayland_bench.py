#!/usr/bin/env python3
"""Prints what the panel costs on a Wayland desktop: as a layer, and beside it through Xwayland, in one run.

usage: wayland_bench.py BUILD_FOLDER
"""

import statistics
import sys
import time
from pathlib import Path

from figures import start_up_milliseconds, status
from player import Player
from screen import Screenshot
from session import wait_for
from sway_session import WaybarSession, leave_root
from wlroots_session import BACKGROUND_COLOUR, SCREEN_SIZE

BUILD = Path(sys.argv[1]).resolve()
OPENINGS = 9
# Within the panel, which is below the icon.
PLACE = (SCREEN_SIZE[0] // 2, 100)


class DesktopWithBoth(WaybarSession):
    xwayland = True


def shows_panel(session):
    area = f"{PLACE[0]},{PLACE[1]} 1x1"
    shot = Screenshot.by_command(session.environment, "grim", "-g", area, "-t", "ppm", "-")
    return shot.pixel(0, 0) != BACKGROUND_COLOUR


def first_frame_milliseconds(session, icon):
    """From the release of the button to the panel on the screen, which is looked at every few milliseconds."""
    session.click(icon)
    begin = time.monotonic()
    while not shows_panel(session):
        assert time.monotonic() - begin < 5, "the panel does not open"
    return 1000 * (time.monotonic() - begin)


def measure(session, platform):
    environment = {"QT_QPA_PLATFORM": platform}
    start = start_up_milliseconds(session, BUILD / "mireval", environment)
    player = Player(session, BUILD / "mireval", environment=environment)
    icon = player.find_icon()
    time.sleep(3)
    idle = status(player.process.pid)
    times = []
    for _ in range(OPENINGS):
        times.append(first_frame_milliseconds(session, icon))
        time.sleep(1)
        opened = status(player.process.pid)
        session.press_key("Escape")
        wait_for(lambda: not shows_panel(session), "the panel to close")
        time.sleep(0.5)
    player.process.kill()
    player.process.wait()
    return start, idle, statistics.median(times), max(times), opened


def main():
    leave_root()
    session = DesktopWithBoth(BUILD / "bench" / "screenshots", sound=False)
    try:
        session.start_bar("top", "center")
        session.move_pointer((60, 500))
        print(f"{'windows':<9} {'start ms':>9} {'idle RSS, anon MB':>19} {'click to frame ms, worst':>25} "
              f"{'open RSS, anon MB':>19}")
        for platform in ("wayland", "xcb"):
            start, idle, median, worst, opened = measure(session, platform)
            print(f"{platform:<9} {start:>9.0f} {idle[2]:>12.1f} {idle[3]:>6.2f} {median:>18.0f} {worst:>6.0f} "
                  f"{opened[2]:>12.1f} {opened[3]:>6.2f}", flush=True)
    finally:
        session.end()


if __name__ == "__main__":
    sys.exit(main())
