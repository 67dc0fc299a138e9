"""The parts of a walk that need no desktop."""

import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from clocks import Clocks
from kept_seeds import KeptSeed, parse
from model import Model
from track_files import TrackFiles, media_share, names_by_title

FIRST, SECOND = ("focus", 0), ("focus", 1)


class ModelTest(unittest.TestCase):
    def setUp(self):
        self.model = Model(40, 0)
        self.model.half = 0.4
        self.model.select("focus")

    def test_a_load_that_fails_leaves_the_earlier_track(self):
        self.model.damage(SECOND, "nothing")
        self.model.step(1)
        self.assertEqual((self.model.loaded, self.model.sounds, self.model.is_playing), (FIRST, True, False))
        self.assertEqual(self.model.failed_loads, 1)
        self.model.damage(SECOND, None)
        self.model.step(0)
        self.assertEqual((self.model.loaded, self.model.is_playing, self.model.failed_loads), (SECOND, True, 1))

    def test_a_replaced_file_counts_when_it_is_opened(self):
        self.model.damage(FIRST, "other")
        self.assertIsNone(self.model.loaded_file)
        self.model.select("focus")
        self.assertEqual(self.model.loaded_file, "other")

    def test_half_a_file_ends_early(self):
        self.model.damage(SECOND, "half")
        self.model.step(1)
        self.assertEqual(self.model.length, [15, 17])

    def test_half_of_the_file_that_plays_is_taken(self):
        self.model.pass_time(30)
        self.model.damage(FIRST, "half")
        self.assertEqual(self.model.length, [30, 40])
        self.model.damage(FIRST, None)
        self.model.damage(FIRST, "half")
        self.assertEqual(self.model.length, [30, 40])

    def test_a_track_that_ended_is_opened_again(self):
        self.model.damage(SECOND, "garbage")
        self.model.pass_time(41)
        self.model.end_track()
        self.assertEqual((self.model.sounds, self.model.has_ended, self.model.expected_position),
                         (False, True, (40, 40)))
        self.model.toggle()
        self.assertEqual((self.model.loaded, self.model.is_playing, self.model.heard), (FIRST, True, [0, 0]))
        self.model.pass_time(82)
        self.model.damage(("focus", 2), "garbage")
        self.model.end_track()
        self.model.damage(FIRST, "nothing")
        index = self.model.index
        self.model.toggle()
        self.assertEqual((self.model.index, self.model.is_playing), (index + 1, True))

    def test_without_descriptors_only_the_end_of_a_track_frees_one(self):
        self.model.has_descriptors = False
        self.model.step(1)
        self.assertEqual((self.model.loaded, self.model.is_playing), (FIRST, False))
        self.model.end_track()
        self.assertEqual((self.model.loaded, self.model.is_playing), (("focus", 2), True))


class TrackFilesTest(unittest.TestCase):
    def test_every_track_has_a_file(self):
        names = names_by_title()
        self.assertEqual(len(set(names.values())), 64)
        self.assertEqual(names["Rain Veil"], "relaxation-1.m4a")

    def test_files_change_as_they_are_said_to(self):
        with tempfile.TemporaryDirectory() as folder:
            originals, copies = Path(folder, "originals"), Path(folder, "copies")
            for place in (originals, copies):
                place.mkdir()
                (place / "relaxation-1.m4a").write_bytes(b"index...mdat" + b"music" * 20)
            (originals / "other.m4a").write_bytes(b"other music")
            files, copy = TrackFiles(originals, copies), copies / "relaxation-1.m4a"
            with open(copy, "rb") as opened:
                files.replace("Rain Veil", "other.m4a")
                self.assertEqual(copy.read_bytes(), b"other music")
                files.spoil("Rain Veil")
                self.assertNotIn(b"mdat", copy.read_bytes())
                self.assertEqual(len(opened.read()), 112)
            files.restore("Rain Veil")
            self.assertEqual(files.truncate("Rain Veil"), 44 / 100)
            self.assertEqual(copy.stat().st_size, 56)
            files.delete("Rain Veil")
            self.assertFalse(copy.exists())

    def test_the_share_of_music_without_its_index(self):
        self.assertEqual(media_share(b"index...mdat" + bytes(100), 0.06), 0)


class KeptSeedsTest(unittest.TestCase):
    def test_lines(self):
        self.assertEqual(parse("# a comment\n\n7 pipewire 20 it was silent\n"),
                         [KeptSeed(7, "pipewire", 20, "it was silent")])


class ClocksTest(unittest.TestCase):
    def test_a_program_sees_the_clocks(self):
        asks = ("import time; print(time.time(), time.clock_gettime(time.CLOCK_BOOTTIME), time.monotonic(), "
                "time.gmtime().tm_year)")
        with tempfile.TemporaryDirectory() as folder:
            clocks = Clocks(os.environ["MIREVAL_SHIFTED_CLOCKS"], Path(folder))
            self.assertEqual(clocks.environment(["xfce4-panel"]), {})
            for wall, asleep in ((0, 0), (-1e9 - 0.25, 0), (0, 3600)):
                clocks.set_wall(wall)
                clocks.sleep(asleep)
                before = time.time(), time.clock_gettime(time.CLOCK_BOOTTIME), time.monotonic()
                seen = subprocess.run([sys.executable, "-c", asks], env=clocks.environment(["mireval"]), check=True,
                                      capture_output=True, text=True).stdout.split()
                for value, real, offset in zip(seen, before, (wall + asleep, asleep, 0), strict=False):
                    self.assertTrue(0 <= float(value) - real - offset < 10, (value, real, offset))
                self.assertEqual(int(seen[3]), time.gmtime(float(seen[0])).tm_year)
