"""What several measurements need: the cost of a process, and the time that the player takes to start."""

import os
import statistics
import subprocess
import time
from pathlib import Path

from player import Player

TICKS_PER_SECOND = os.sysconf("SC_CLK_TCK")


def status(pid):
    """Context switches of all threads, processor seconds, resident and anonymous memory in MB."""
    switches = 0
    for task in Path(f"/proc/{pid}/task").iterdir():
        for line in (task / "status").read_text().splitlines():
            if "ctxt_switches" in line:
                switches += int(line.split()[1])
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    processor = (int(fields[11]) + int(fields[12])) / TICKS_PER_SECOND
    memory = dict(line.split(":", 1) for line in Path(f"/proc/{pid}/status").read_text().splitlines())
    return switches, processor, *(int(memory[name].split()[0]) / 1024 for name in ("VmRSS", "RssAnon"))


def start_up_milliseconds(session, program, environment=None):
    """From exec to the item's registration at the tray, in milliseconds; the median of five starts."""
    times = []
    for _ in range(5):
        watch = session.start(
            ["dbus-monitor", "--session", "interface='org.kde.StatusNotifierWatcher'"], stdout=subprocess.PIPE)
        time.sleep(0.5)
        begin = time.monotonic()
        player = Player(session, program, environment=environment)
        for line in watch.stdout:
            if b"RegisterStatusNotifierItem" in line:
                break
        times.append(1000 * (time.monotonic() - begin))
        player.process.kill()
        player.process.wait()
        watch.kill()
        time.sleep(0.5)
    return statistics.median(times)
