"""What the desktop's tests have in common. The environment names the player, its resources in the build tree and the
folder for screenshots (see tests/CMakeLists.txt).
"""

import os
import shutil
import subprocess
import time
import unittest
from pathlib import Path

from player import Player
from png import write_png
from session import Session, wait_for
from sound import Recorder, is_silent, pitch

PROGRAM = os.environ["MIREVAL_PROGRAM"]
BUNDLE = Path(os.environ["MIREVAL_BUNDLE"])
SCREENSHOTS = Path(os.environ["MIREVAL_SCREENSHOTS"])
TONES = SCREENSHOTS.parent / "tones"
TRACKS_PER_MODE = 16
COVERS_PER_MODE = 10


def frequency_of(track):
    return 300 + 40 * track


def _tone(track, seconds):
    """The file of a tone, which is made once for all tests."""
    tone = TONES / f"{frequency_of(track)}-{seconds}.m4a"
    if not tone.exists():
        TONES.mkdir(parents=True, exist_ok=True)
        unfinished = tone.with_suffix(f".{os.getpid()}.m4a")
        subprocess.run(
            ["ffmpeg", "-v", "error", "-nostdin", "-f", "lavfi", "-i",
             f"sine=frequency={frequency_of(track)}:duration={seconds}", "-c:a", "aac", "-aac_coder", "fast",
             "-b:a", "96k", unfinished], check=True, timeout=60)
        unfinished.rename(tone)
    return tone


def make_tones(folder, seconds, modes=("focus",)):
    """A resource folder in which the tracks of a mode are tones of different pitch."""
    audio = folder / "PreviewAudio"
    audio.mkdir(parents=True)
    shutil.copy(BUNDLE / "MenuBarIcon.png", folder)
    for mode in modes:
        for track in range(1, TRACKS_PER_MODE + 1):
            shutil.copy(_tone(track, seconds), audio / f"{mode}-{track}.m4a")
    return folder


def cover_colour(position):
    return 40 + 10 * position, 90, 230 - 10 * position


def make_covers(folder, mode="focus"):
    """Adds one-coloured covers for the positions in the playlist that have one of their own."""
    covers = folder / "CoverImages"
    covers.mkdir()
    for position in range(1, COVERS_PER_MODE + 1):
        side = 200
        write_png(covers / f"{mode}-{position:02}.png", side, side, bytes(cover_colour(position)) * side * side)
    return folder


class DesktopTest(unittest.TestCase):
    """A private desktop of the given kind for each test."""

    desktop = {}

    def setUp(self):
        self.session = Session(SCREENSHOTS, **self.desktop)
        self.addCleanup(self.session.end)

    def run_copy(self, *arguments, **options):
        """Starts the player once more. The copy hands its request to the player that runs, says nothing and ends."""
        copy = Player(self.session, PROGRAM, arguments=arguments, name="copy", **options)
        self.assertEqual(copy.exit_status(), 0, copy.errors)
        self.assertEqual((copy.output, copy.errors), ("", ""))

    def windows(self):
        """The player's windows on the X server: the panel and the settings, whose title ends with the name."""
        return self.session.windows("--name", "(^| )Mireval$")

    def panel(self):
        """The rectangle of the player's only window without its shadow; None while there is none."""
        windows = self.windows()
        self.assertLessEqual(len(windows), 1)
        rectangle = self.session.rectangle(windows[0]) if windows else None
        if rectangle is None:
            return None
        x, y, width, height = rectangle
        left, right, top, bottom = self.session.shadow(windows[0])
        return x + left, y + top, width - left - right, height - top - bottom

    def panel_at_rest(self):
        """Waits for the panel, and for the window manager to have put it where it stays."""
        def always_the_same():
            first = self.panel()
            for _ in range(4):
                time.sleep(0.2)
                if self.panel() != first:
                    return None
            return first
        return wait_for(always_the_same, "the panel", 10)

    def find_buttons(self, *names):
        """The places of buttons within a panel that opens as a window. A player without a bus cannot be asked for
        them, so another one is."""
        player = Player(self.session, PROGRAM, BUNDLE, name="other")
        # Only then its buttons are where they are said to be.
        left, top, _, _ = self.panel_at_rest()
        places = [player.find_button(name).centre for name in names]
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        return [(x - left, y - top) for x, y in places]

    def listen(self):
        return Recorder(self.session, "null.monitor")

    def hear_sound(self, recorder, seconds=10):
        wait_for(lambda: not is_silent(recorder.next(0.2)), "sound", seconds)

    def hear_silence(self, recorder, seconds=5):
        wait_for(lambda: is_silent(recorder.next(0.5)), "silence", seconds)

    def hear_tone(self, recorder, seconds=10):
        """The track whose steady tone is heard now."""
        pitches = None

        def track():
            nonlocal pitches
            # A stretch with the end of one tone and the beginning of the next has the mean pitch of some other one.
            samples = recorder.next(0.3)
            pitches = pitch(samples[:len(samples) // 2]), pitch(samples[len(samples) // 2:])
            return next((number for number in range(1, TRACKS_PER_MODE + 1)
                         if all(abs(frequency_of(number) - heard) < 5 for heard in pitches)), None)
        return wait_for(track, lambda: f"one of the tones, hearing {pitches} Hz", seconds)
