#!/usr/bin/env python3
"""Prints tables of what the player costs and how fast it answers, beside its peers.

usage: bench.py BUILD_FOLDER

The latencies come from playback_bench. The cost of running is measured on whole programs: the player on a desktop with
a tray, its panel opened once, used and closed again; mpv and mpd without any window; cmus in a terminal that nobody
draws.
"""

import subprocess
import sys
from pathlib import Path

from cost import cost_rows
from first_pixel import milliseconds_to_panel
from session import Session
from startup import compare_starts, turn_off_screen_reader
from table import Row, print_table

BUILD = Path(sys.argv[1]).resolve()
SCREENSHOTS = BUILD / "bench" / "screenshots"
PLAYERS = ("mireval", "mpv", "mpd", "cmus")
STARTS = 15
FIGURES = {"first_sample": "command to first sample", "gap": "gap between two tracks"}


def sound_rows():
    """playback_bench prints lines `server player figure median worst`."""
    output = subprocess.run([BUILD / "bench" / "playback_bench"], check=True, stdout=subprocess.PIPE, text=True).stdout
    rows = {}
    for line in output.splitlines():
        server, player, figure, median, worst = line.split()
        row = rows.setdefault((server, figure), Row(f"{FIGURES[figure]}, {server}"))
        row.values[player] = (float(median), float(worst))
    return list(rows.values())


def panel_rows(session):
    first, later = milliseconds_to_panel(session, BUILD / "mireval")
    # One frame of a screen of 60 Hz.
    return [Row("click to panel, first opening after the start", {"mireval": first}),
            Row("click to panel, nine later openings", {"mireval": later}, goal=17)]


def start_rows(session):
    player, empty = compare_starts(session, BUILD, STARTS)
    return [Row("start to icon; run of an empty QGuiApplication", {"mireval": player, "empty": empty}),
            Row("the same, in runs of the empty application", {"mireval": player[0] / empty[0]}, goal=1.4, digits=2)]


def main():
    print("bench: listening to the players, for two minutes", file=sys.stderr)
    print_table("Sound on the monitor of a null sink, ms: median / worst of nine", PLAYERS, sound_rows())
    print("bench: watching them play and pause, for two minutes", file=sys.stderr)
    print_table("Running on PulseAudio", PLAYERS, cost_rows(BUILD, SCREENSHOTS))
    for title, columns, rows_of in (
            ("The panel on X11, with openbox and xfce4-panel, ms: median / worst", ("mireval",), panel_rows),
            (f"Starting on X11, ms: median / worst of {STARTS}, in turn", ("mireval", "empty"), start_rows)):
        session = Session(SCREENSHOTS, sound=False)
        try:
            turn_off_screen_reader(session)
            print_table(title, columns, rows_of(session))
        finally:
            session.end()
    subprocess.run([sys.executable, "-B", Path(__file__).with_name("wayland_bench.py"), BUILD], check=True)


if __name__ == "__main__":
    main()
