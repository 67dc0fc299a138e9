"""Short walks, with fresh seeds and with those that have found something."""

import subprocess
import sys
import unittest
from pathlib import Path

from kept_seeds import kept_seeds

WALK = Path(__file__).parent / "walk.py"
MOST_KEPT_SECONDS = 120


class WalkCase(unittest.TestCase):
    def walk(self, *arguments):
        """The walk itself prints its seed and its steps."""
        self.assertEqual(subprocess.run([sys.executable, "-B", WALK, *arguments], check=False).returncode, 0)


class FreshWalkPulseAudio(WalkCase):
    def test_a_minute(self):
        self.walk("--minutes=1", "--server=pulseaudio")


class FreshWalkPipeWire(WalkCase):
    def test_a_minute(self):
        self.walk("--minutes=1", "--server=pipewire")


class KeptSeeds(WalkCase):
    def test_walk_again(self):
        self.assertLessEqual(sum(kept.seconds for kept in kept_seeds()), MOST_KEPT_SECONDS)
        for kept in kept_seeds():
            with self.subTest(kept.why):
                self.walk(f"--seed={kept.seed}", f"--minutes={kept.seconds / 60}", f"--server={kept.server}")
