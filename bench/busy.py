#!/usr/bin/env python3
"""Prints what is missing of the sound on a busy machine, for the player and its peers.

usage: busy.py BUILD_FOLDER [SECONDS]

Each player plays a track of two tones for so long, while the load of load.py runs. The players have the usual priority,
as on a desktop without rtkit, and share a small memory group with the load. The sound server and the recorder of its
null sink are outside of the group and have real-time priority, so that what is missing is the player's fault. As a
control, our player is measured once more with their priority and outside of the group.

The tones tell for every moment of the recording which frame of the track it is. An interruption is a silence, or a
stretch that is left out or repeated; the frames of all interruptions are those that are missing.
"""

import os
import subprocess
import sys
import time
from pathlib import Path

from load import busy_machine, stall_seconds
from table import Row, print_table

BUILD = Path(sys.argv[1]).resolve()
SECONDS = sys.argv[2] if len(sys.argv) > 2 else "20"
PLAYERS = ("mireval", "mpv", "mpd", "cmus")
# What each figure of busy_bench, in frames, is multiplied by, and its digits.
FIGURES = {"longest gap, ms": (1000 / 44100, 1), "missed frames": (1, 0)}
RESOURCES = ("cpu", "memory", "io")


def rows_of(output):
    """busy_bench prints lines `server player longest missed`, in frames."""
    rows = {}
    for line in output.splitlines():
        server, player, *frames = line.split()
        for (figure, (factor, digits)), value in zip(FIGURES.items(), frames):
            row = rows.setdefault((server, figure), Row(f"{figure}, {server}", digits=digits))
            row.values[player] = factor * int(value)
    return list(rows.values())


def main():
    if os.geteuid() != 0:
        sys.exit("busy.py: only root may give the sound server and the recorder real-time priority")
    with busy_machine(BUILD / "bench") as start_with_load:
        print("bench: listening to the players on a busy machine, for four minutes", file=sys.stderr)
        begin, stalls = time.monotonic(), [stall_seconds(resource) for resource in RESOURCES]
        output = subprocess.run(["chrt", "--rr", "20", BUILD / "bench" / "busy_bench", SECONDS, *start_with_load],
                                check=True, stdout=subprocess.PIPE, text=True).stdout
        seconds = time.monotonic() - begin
        waits = [100 * (stall_seconds(resource) - before) / seconds for resource, before in zip(RESOURCES, stalls)]
    rows = rows_of(output)
    controls = [Row(row.figure, {"control": row.values.pop("control")}, goal=0, digits=row.digits) for row in rows]
    print_table(f"{SECONDS} s of sound on a busy machine", PLAYERS, rows)
    print_table("The same, of the player in real time outside of the memory group", ("control",), controls)
    print("\nShare of the time in which some process waited: "
          + ", ".join(f"{resource} {wait:.0f} %" for resource, wait in zip(RESOURCES, waits)))


if __name__ == "__main__":
    main()
