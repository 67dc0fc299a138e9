#!/usr/bin/env python3
"""Prints one table of what the player costs and how fast it answers, beside its peers.

usage: bench.py BUILD_FOLDER

The latencies come from playback_bench. The cost of playing is measured here, on whole programs: the player on a
desktop with a tray, its panel opened once, used and closed again; the peers without any window.
"""

import subprocess
import sys
import time
from pathlib import Path

from figures import start_up_milliseconds, status
from player import Player
from session import Session, wait_for

BUILD = Path(sys.argv[1]).resolve()
TRACK = BUILD / "resources" / "PreviewAudio" / "focus-1.m4a"
WINDOW_SECONDS = 10


def measure(pid):
    """Context switches a second, per cent of a core, and memory at the end."""
    time.sleep(3)
    before = status(pid)
    time.sleep(WINDOW_SECONDS)
    after = status(pid)
    return [(after[0] - before[0]) / WINDOW_SECONDS, 100 * (after[1] - before[1]) / WINDOW_SECONDS, *after[2:]]


def wait_until_sounding(session):
    wait_for(lambda: "RUNNING" in session.run("pactl", "list", "short", "sinks").stdout, "sound")


def cost_of_mireval(session):
    rows = []
    player = Player(session, BUILD / "mireval")
    icon = player.find_icon()
    rows.append(("mireval", "idle in the tray, never opened", measure(player.process.pid)))
    session.click(icon)
    player.press("Focus")
    wait_until_sounding(session)
    session.press_key("Escape")
    player.wait_until_closed()
    rows.append(("mireval", "playing, panel closed", measure(player.process.pid)))
    session.click(icon)
    player.press("Pause")
    session.press_key("Escape")
    player.wait_until_closed()
    rows.append(("mireval", "paused, panel closed", measure(player.process.pid)))
    player.process.kill()
    return rows


def cost_of_mpv(session):
    process = session.start(["mpv", "--no-config", "--no-video", "--no-terminal", "--ao=pulse", TRACK])
    wait_until_sounding(session)
    row = ("mpv", "playing", measure(process.pid))
    process.kill()
    return [row]


def cost_of_mpd(session):
    folder = session.folder
    configuration = folder / "mpd.conf"
    configuration.write_text(
        f'bind_to_address "{folder}/mpd.socket"\nmusic_directory "{TRACK.parent}"\ndb_file "{folder}/mpd.db"\n'
        'audio_output {\n type "pulse"\n name "pulse"\n}\n')
    process = session.start(["mpd", "--no-daemon", configuration])
    client = ["mpc", f"--host={folder}/mpd.socket"]
    wait_for(lambda: session.run(*client, "update", "--wait").returncode == 0, "mpd", 60)
    session.run(*client, "add", TRACK.name)
    session.run(*client, "play")
    wait_until_sounding(session)
    rows = [("mpd", "playing", measure(process.pid))]
    session.run(*client, "pause")
    rows.append(("mpd", "paused", measure(process.pid)))
    process.kill()
    return rows


def main():
    print("Latency on the null sink's monitor, in milliseconds: median and worst of nine")
    subprocess.run([BUILD / "bench" / "playback_bench"], check=True)

    print("\nCost on PulseAudio, over ten seconds")
    print(f"{'player':<9} {'state':<31} {'switches/s':>10} {'CPU %':>6} {'RSS MB':>7} {'anon MB':>8}")
    for cost in (cost_of_mireval, cost_of_mpv, cost_of_mpd):
        session = Session(BUILD / "bench" / "screenshots")
        try:
            for name, state, (switches, processor, resident, anonymous) in cost(session):
                print(f"{name:<9} {state:<31} {switches:>10.1f} {processor:>6.2f} {resident:>7.1f} {anonymous:>8.1f}",
                      flush=True)
        finally:
            session.end()

    session = Session(BUILD / "bench" / "screenshots")
    try:
        milliseconds = start_up_milliseconds(session, BUILD / "mireval")
        print(f"\nStart to icon registered: {milliseconds:.0f} ms (median of five)")
    finally:
        session.end()

    print("\nThe panel on a Wayland desktop, as a layer and through Xwayland", flush=True)
    subprocess.run([sys.executable, "-B", Path(__file__).with_name("wayland_bench.py"), BUILD], check=True)


if __name__ == "__main__":
    main()
