#!/usr/bin/env python3
"""Changes the track many times while the panel opens and closes, and checks that the player holds no more at the end
than it did after the first fifth. Draws what it held.

usage: soak.py --soak CHANGES [--server pulseaudio|pipewire]
"""

import argparse
import shutil
import sys
import tempfile
import time
from pathlib import Path

from chart import draw
from desk import ChaosSession
from desktop_case import BUNDLE, PROGRAM, SCREENSHOTS, TRACKS_PER_MODE, make_tones
from holdings import Holdings
from media import Playerctl, wait_for_player
from memory_pressure import MemoryPressure
from model import MODES
from player import Player
from session import Session, wait_for
from sound_servers import SERVERS
from trend import WARM_UP, Trend

TRACK_SECONDS = 1
CHANGES_PER_SAMPLE = 5
SAMPLES_PER_LINE = 10
FEWEST_CHANGES = 50
TRACKS = TRACKS_PER_MODE * len(MODES)
# The second of two clicks within a shorter time is part of a double click.
SECONDS_BETWEEN_CLICKS = 0.5
# After the panel has closed, the player gives memory back.
SECONDS_OF_REST = 0.3


class SoakSession(ChaosSession, Session):
    pass


class Soak:
    def __init__(self, session, player):
        self._session = session
        self._player = player
        self._icon = player.find_icon()
        self._last_click = 0
        self._playerctl = Playerctl(session)
        self._titles = None
        self._step = 0
        self._step_with_all_covers = 0
        self._pressure = MemoryPressure()
        self.openings = 0
        self.samples = []

    @property
    def changes(self):
        """How often another track has begun to play."""
        return len(self._titles.texts()) if self._titles else 0

    def go(self, count):
        self._start_mode(MODES[0])
        wait_for_player(self._session)
        self._titles = self._playerctl.follow("{{xesam:title}}")
        wait_for(lambda: self.changes, "the first title")
        holdings = Holdings(self._session, self._player)
        try:
            while self.changes < count:
                self._step += 1
                self._change_track()
                if self.changes >= (len(self.samples) + 1) * CHANGES_PER_SAMPLE:
                    self._take_sample(holdings)
        finally:
            holdings.close()

    def _take_sample(self, holdings):
        time.sleep(SECONDS_OF_REST)
        held = holdings.take()
        if self._pressure.was_felt():
            # The player has dropped its covers. It decodes them again, one after the other.
            self._step_with_all_covers = self._step + TRACKS
        if self._step < self._step_with_all_covers:
            held["memory"] = None
        self.samples.append((self.changes, held))
        if len(self.samples) % SAMPLES_PER_LINE == 0:
            print(f"{self.changes:5} changes: {held}", flush=True)

    def _change_track(self):
        """The same ways of changing it come again and again. The panel is closed afterwards."""
        before = self.changes
        turn, place = divmod(self._step, TRACKS_PER_MODE)
        if place == 0:
            self._start_mode(MODES[turn % len(MODES)])
        elif place % 3 == 0:
            self._pause_and_resume()
        else:
            self._open_panel()
            if place % 3 == 1:
                self._player.press("Next")
        # Unless it was changed above, the track ends by itself.
        wait_for(lambda: self.changes > before, "another track")
        self._close_panel()

    def _start_mode(self, mode):
        copy = self._session.run(PROGRAM, f"--mode={mode}")
        if (copy.returncode, copy.stdout, copy.stderr) != (0, "", ""):
            raise AssertionError(f"a second start: {copy}")

    def _pause_and_resume(self):
        for _ in range(2):
            self._playerctl("play-pause")

    def _open_panel(self):
        time.sleep(max(0, self._last_click + SECONDS_BETWEEN_CLICKS - time.monotonic()))
        self._session.click(self._icon)
        self._last_click = time.monotonic()
        self._player.find_button("Next")
        self.openings += 1

    def _close_panel(self):
        if self._player.texts():
            self._session.press_key("Escape")
            self._player.wait_until_closed()


def make_resources(folder):
    make_tones(folder, TRACK_SECONDS, MODES)
    shutil.copytree(BUNDLE / "CoverImages", folder / "CoverImages")
    return folder


def soak(count, server, resources):
    """Returns the samples, how often the panel has opened, and what went wrong, empty if nothing did."""
    session = SoakSession(SCREENSHOTS, server)
    try:
        player = Player(session, PROGRAM, resources)
        run = Soak(session, player)
        failure = ""
        try:
            run.go(count)
        except AssertionError as error:
            session.screenshot("soak-failure")
            failure = f"after {run.changes} changes: {error}"
        if written := player.output + player.errors:
            failure += f" written: {written}"
        return run.samples, run.openings, failure
    finally:
        session.end()


def report(samples, openings, server):
    """Prints and draws the trends of all figures; returns what has risen."""
    trends = [Trend(figure, [(changes, held[key]) for changes, held in samples])
              for key, figure in Holdings.FIGURES.items()]
    picture = SCREENSHOTS.parent / f"soak-{server}.png"
    title = f"{samples[-1][0]} track changes, {openings} openings of the panel, {server}"
    draw(picture, title, trends)
    print(f"soak: {title}; {picture}", *trends, sep="\n")
    return [complaint for trend in trends for complaint in trend.complaints()]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--soak", type=int, required=True, metavar="CHANGES")
    parser.add_argument("--server", choices=SERVERS, default="pulseaudio")
    arguments = parser.parse_args()
    if arguments.soak < FEWEST_CHANGES:
        parser.error(f"fewer than {FEWEST_CHANGES} changes show no trend")
    if WARM_UP * arguments.soak < TRACKS:
        print(f"soak: the first fifth does not play all {TRACKS} tracks, so covers may be decoded after it")
    begin = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="mireval-soak-") as folder:
        samples, openings, failure = soak(arguments.soak, arguments.server, make_resources(Path(folder)))
    print(f"soak: {time.monotonic() - begin:.0f} s")
    found = [failure] if failure else []
    if samples:
        found += report(samples, openings, arguments.server)
    left_out = sum(held["memory"] is None for _, held in samples)
    if left_out:
        print(f"soak: {left_out} values of memory are left out, since the system was short of memory before them")
    for complaint in found:
        print(f"soak: FAILED, {arguments.server}: {complaint}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
