#!/usr/bin/env python3
"""Walks at random through what a user and a machine can do to the player. After each step it checks what is heard, what
the desktop's media controls say, and what the panel shows.

usage: walk.py [--seed N] [--minutes M] [--server pulseaudio|pipewire] [--desktop xfce|sway]
"""

import argparse
import copy
import os
import random
import re
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from costs import LIMIT_SECONDS, Costs
from desk import LOWEST_TONE, RECORDING_SECONDS, TONE_STEP, Desk
from desktop_steps import DesktopSteps
from machine_steps import MachineSteps
from model import MODES, TRACKS_PER_MODE, Model
from panel_witness import Shown, differences
from png import write_png
from small_disk import enter_mount_namespace
from sound_servers import SERVERS
from sound_steps import SoundSteps
from user_steps import UserSteps

PROGRAM = os.environ["MIREVAL_PROGRAM"]
BUNDLE = Path(os.environ["MIREVAL_BUNDLE"])
SCREENSHOTS = Path(os.environ["MIREVAL_SCREENSHOTS"])
TRACK_SECONDS = 40
# What recordings, announcements and rounding to seconds may differ by.
SLACK_SECONDS = 2
LONGEST_WAIT_SECONDS = 5
# Of a file that was cut off while it plays.
LONGEST_READ_AHEAD_SECONDS = 15
COVERS_PER_MODE = 10
# The number of the tone in the file that takes the place of others.
OTHER_TONE = len(MODES) * TRACKS_PER_MODE + 1
# The second one also when the file cannot be opened.
LINE_OF_FAILED_LOAD = (r'"Missing bundled track .+"|'
                       r'"Audio playback failed: (Invalid data found when processing input|Too many open files)"')
NO_ROOM = "mireval: too many files are open; no window can be opened"
NO_TRAY = "mireval: the desktop has no tray for the icon; the panel opens as a window"
ALLOWED_ERRORS = (
    "mireval: no sound server answers; the music waits for one",
    NO_ROOM,
    NO_TRAY,
    # libpulse says that nothing could be opened, which the walk has seen to.
    ".*: Too many open files",
    "The per-process limit on the number of open file descriptors has been reached.",
    "ERROR: cannot create wakeup pipe",
    'qt.qpa.wayland: Could not load cursor theme "default" size [0-9]+',
)


def make_tracks(folder):
    """Tones of different pitch for all tracks of all modes."""
    audio = folder / "PreviewAudio"
    audio.mkdir(parents=True)
    # Covers of one colour.
    (folder / "CoverImages").mkdir()
    for mode in MODES:
        for cover in range(1, COVERS_PER_MODE + 1):
            write_png(folder / "CoverImages" / f"{mode}-{cover:02}.png", 64, 64, bytes((10 * cover, 90, 60)) * 64 * 64)
    (folder / "MenuBarIcon.png").write_bytes((BUNDLE / "MenuBarIcon.png").read_bytes())
    names = [f"{mode}-{track}" for mode in MODES for track in range(1, TRACKS_PER_MODE + 1)] + ["other"]
    for number, name in enumerate(names, 1):
        frequency = LOWEST_TONE + TONE_STEP * number
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-f", "lavfi", "-i",
                        f"sine=frequency={frequency}:duration={TRACK_SECONDS}", "-c:a", "aac", "-aac_coder", "fast",
                        "-b:a", "64k", "-movflags", "+faststart", audio / f"{name}.m4a"], check=True, timeout=60)
    return folder


def resources_with_tones():
    """The folder, made once for all walks."""
    folder = SCREENSHOTS.parent / f"chaos-resources-{TRACK_SECONDS}"
    if not folder.exists():
        unfinished = make_tracks(folder.with_suffix(f".{os.getpid()}"))
        try:
            unfinished.rename(folder)
        except OSError:
            # Another walk was faster.
            shutil.rmtree(unfinished)
    return folder


class Failure(Exception):
    pass


@dataclass
class Observation:
    """What the three witnesses say at one time."""

    media: tuple
    tone: int
    shown: Shown
    position: float
    lines: list


class Walk:
    def __init__(self, desk, seed, report):
        self.desk = desk
        self.random = random.Random(seed)
        self.report = report
        self.model = Model(TRACK_SECONDS, time.monotonic())
        self.model.bar_kinds = desk.session.bar_kinds
        self.model.bars = set(desk.session.bars)
        # What each track is called and sounds like is learned when it is first played, since each start shuffles.
        self.titles = {}
        self.tones = {}
        self.number = 0
        self.costs = Costs()
        # The last step, whether music should be heard after it, and the end of what it may have taken of the music.
        # A step that goes on after that end sets it.
        self.last_step = None
        self.music_is_expected = False
        self.fault_ended = None
        self.kinds = [kind(self) for kind in (UserSteps, SoundSteps, DesktopSteps, MachineSteps)]

    # Witnesses.

    def observe(self):
        tone = self.desk.heard_tone() if self.model.can_be_heard else None
        position = self.desk.position()
        return Observation(self.desk.media(), tone, self.desk.shown(), position, self.desk.written_lines())

    def disagreements(self):
        """What is heard, said and shown otherwise than the model has it."""
        self.model.pass_time(time.monotonic())
        seen = self.observe()
        found = self.compare(self.model, seen)
        if found and self.model.may_have_ended(SLACK_SECONDS):
            later = copy.deepcopy(self.model)
            later.end_track()
            if not self.compare(later, seen):
                self.model, found = later, []
        now = time.monotonic()
        if found and self.model.may_lose_patience(now, SLACK_SECONDS):
            later = copy.deepcopy(self.model)
            later.lose_patience()
            if not self.compare(later, seen):
                self.model, found = later, []
        if self.model.must_have_lost_patience(now, SLACK_SECONDS):
            if self.model.panel_is_open:
                # Nothing was to be seen of it.
                self.model.lose_patience()
            else:
                found.append("the player still waits for a tray")
        if self.model.must_have_ended(SLACK_SECONDS):
            found.append("the track has not ended")
        if not found:
            self.learn(seen)
        return found

    def compare(self, model, seen):
        return self.media_differences(model, seen.media) + self.sound_differences(model, seen.tone) + (
            self.panel_differences(model, seen.shown)) + self.position_differences(model, seen.position) + (
            self.line_differences(model, seen.lines))

    def media_differences(self, model, media):
        if not model.has_bus:
            return []
        if model.loaded is None:
            return [] if media is None else [f"among the media players before any music: {media}"]
        if media is None:
            return ["not among the media players"]
        status, title = media
        expected = "Playing" if model.is_playing else "Paused"
        found = [] if status == expected else [f"status {status}, not {expected}"]
        return found + self.unlike(self.titles, model.track, title, "title")

    def sound_differences(self, model, tone):
        if not model.can_be_heard:
            return []
        if not model.sounds:
            return [] if tone == 0 else [f"tone {tone}, not silence"]
        if not tone:
            return ["silence, not music" if tone == 0 else "no clear tone"]
        if model.loaded_file == "other":
            return [] if tone == OTHER_TONE else [f"tone {tone}, not that of the other file"]
        return self.unlike(self.tones, model.loaded, tone, "tone")

    @staticmethod
    def position_differences(model, position):
        if model.loaded is None or position is None:
            return []
        least, most = model.expected_position
        # Music that begins late is another matter, and may.
        within = least - LIMIT_SECONDS <= position <= most + SLACK_SECONDS
        return [] if within else [f"position {position:.1f}, not {least:.1f} to {most:.1f}"]

    @staticmethod
    def line_differences(model, lines):
        """Each load that fails writes one line."""
        return [] if len(lines) == model.failed_loads else [f"{len(lines)} lines, not {model.failed_loads}"]

    @staticmethod
    def unlike(known, track, value, kind):
        """Whether a track has another title or tone than before, or that of another track."""
        if track in known:
            return [] if known[track] == value else [f"{kind} {value}, not {known[track]}"]
        others = [other for other in known if known[other] == value]
        return [f"{kind} {value} of {others[0]}, not {track}"] if others else []

    def learn(self, seen):
        if seen.media:
            self.titles.setdefault(self.model.track, seen.media[1])
        for panel in seen.shown.panels:
            if self.model.mode:
                self.titles.setdefault(self.model.track, panel.title)
        if self.model.sounds and seen.tone and self.model.loaded_file != "other":
            self.tones.setdefault(self.model.loaded, seen.tone)

    def panel_differences(self, model, shown):
        found = differences(model, shown, TRACK_SECONDS, SLACK_SECONDS)
        for panel in shown.panels:
            if not found and model.mode:
                found += self.unlike(self.titles, model.track, panel.title, "the panel's title")
        return found

    def wait_for_agreement(self, name, is_of_user=False):
        """Returns how long that took, without what the last recording needs itself, and what disagreed last."""
        begin = time.monotonic()
        last = ""
        while found := self.disagreements():
            last = "; ".join(found)
            if time.monotonic() - begin > LIMIT_SECONDS:
                raise Failure(last)
        seconds = max(0.0, time.monotonic() - begin - (RECORDING_SECONDS if self.model.can_be_heard else 0))
        if not self.desk.player.is_running():
            raise Failure("the player has ended")
        longest = self.costs.answers if is_of_user else self.costs.agreements
        self.costs.add(longest, name + self.remark, seconds)
        return seconds, last

    @property
    def remark(self):
        """A headset sounds later than the player can know."""
        return " with headset" if self.model.has_headset else ""

    def expects_music(self):
        return self.model.sounds and self.model.can_be_heard

    def count_lost_music(self):
        """Adds up the silence since the last step, if music should have been heard all the time."""
        if self.last_step and self.music_is_expected and self.expects_music():
            lost = self.desk.recorder.silent_seconds(self.fault_ended, time.monotonic())
            self.costs.add(self.costs.losses, self.last_step + self.remark, lost)
            if lost > LIMIT_SECONDS:
                raise Failure(f"{lost:.1f} s without music after {self.last_step}")

    def wait_for_end_of_track(self):
        """If it is near: a press at that moment could be for this track or for the next one."""
        limit = time.monotonic() + LONGEST_READ_AHEAD_SECONDS
        while self.model.sounds and self.model.can_be_heard and time.monotonic() < limit:
            position = self.desk.position()
            earliest, latest = self.model.length
            if position is None or not earliest - 1.5 <= position <= latest + 1:
                return
            self.disagreements()

    def say(self, text):
        print(text, file=self.report, flush=True)

    def go(self, seconds):
        self.wait_for_agreement("start")
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            weights, steps = zip(*(step for kind in self.kinds for step in kind.possible()), strict=True)
            step, = self.random.choices(steps, weights)
            pause = self.random.choice((0, 0, self.random.uniform(0, LONGEST_WAIT_SECONDS)))
            name = step.__name__.replace("_", " ")
            self.number += 1
            detail = "not yet"
            try:
                time.sleep(pause)
                self.wait_for_end_of_track()
                self.wait_for_agreement("pause")
                self.count_lost_music()
                self.fault_ended = None
                detail = step() or ""
                self.fault_ended = self.fault_ended or time.monotonic()
                self.last_step, self.music_is_expected = name, self.expects_music()
                agreed, before = self.wait_for_agreement(name, isinstance(step.__self__, UserSteps))
            except (Failure, AssertionError) as failure:
                raise Failure(f"step {self.number} ({name} {detail}): {failure}") from None
            before = f" (before: {before})" if before else ""
            self.say(f"{self.number:4} {name:<18} {detail:<12} after {pause:.1f} s, agreed in {agreed:.2f} s{before}; "
                     f"{self.model.mode} {self.model.position_text} "
                     f"{'playing' if self.model.is_playing else 'paused'}")
        self.count_lost_music()
        self.check_output()

    def check_output(self):
        """Nothing may be written but the agreed lines."""
        for text, allowed in ((self.desk.player.output, LINE_OF_FAILED_LOAD),
                              (self.desk.player.errors, "|".join(ALLOWED_ERRORS))):
            lines = [line for line in text.splitlines() if not re.fullmatch(allowed, line)]
            if lines:
                raise Failure(f"written: {lines}")
        least, most = self.model.notices
        if not least <= (notices := self.desk.player.errors.count(NO_TRAY)) <= most:
            raise Failure(f"said {notices} times, not {least} to {most}: {NO_TRAY}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(1_000_000))
    parser.add_argument("--minutes", type=float, default=5)
    parser.add_argument("--server", choices=SERVERS, default="pulseaudio")
    parser.add_argument("--desktop", choices=("xfce", "sway"), default="xfce")
    arguments = parser.parse_args()
    if arguments.desktop == "sway":
        from sway_session import leave_root
        leave_root()
    print(f"chaos: seed {arguments.seed}, {arguments.server}, {arguments.desktop}", flush=True)
    try:
        enter_mount_namespace()
    except OSError as error:
        print(f"chaos: without a mount namespace: {error}", flush=True)
    desk = Desk(SCREENSHOTS, arguments.server, PROGRAM, resources_with_tones(), arguments.desktop)
    walk = Walk(desk, arguments.seed, sys.stdout)
    try:
        walk.go(60 * arguments.minutes)
    except (Failure, AssertionError) as failure:
        desk.session.screenshot("chaos-failure")
        print(f"chaos: FAILED, seed {arguments.seed}, {arguments.server}, {arguments.desktop}: {failure}")
        return 1
    finally:
        desk.end()
        print(*walk.costs.lines(), sep="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
