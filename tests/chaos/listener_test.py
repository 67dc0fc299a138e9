#!/usr/bin/env python3
"""Tests of what is made of a recording."""

import array
import unittest

from listener import SETTLING_SECONDS, Timeline, silence
from sound import RATE


def samples(seconds, level=0):
    return array.array("h", [level] * int(seconds * RATE))


class TimelineTest(unittest.TestCase):
    def record(self, timeline, begin, end, level=0):
        """What arrives at its pace, each tenth of a second."""
        for tenth in range(round(begin * 10) + 1, round(end * 10) + 1):
            timeline.add(samples(0.1, level), tenth / 10)

    def test_gives_what_came_after_an_act(self):
        timeline = Timeline(0)
        self.record(timeline, 0, 1, 1000)
        self.assertIsNone(timeline.samples(1, 0.2))
        self.record(timeline, 1, 2, 2000)
        self.assertEqual(set(timeline.samples(1, 0.2)), {2000})

    def test_does_not_trust_a_burst(self):
        timeline = Timeline(0)
        self.record(timeline, 0, 1, 1000)
        # A second in which nothing came, and then at once what was recorded before and meanwhile.
        timeline.add(samples(1.2, 1000), 2.0)
        self.assertEqual(timeline.trusted_from, 2.0)
        self.assertIsNone(timeline.samples(1.5, 0.2))
        self.record(timeline, 2, 2.2, 2000)
        self.assertIsNone(timeline.samples(1.5, 0.2))
        self.record(timeline, 2.2, 3, 2000)
        self.assertEqual(set(timeline.samples(1.5, 0.2)), {2000})

    def test_trusts_what_comes_late_but_at_its_pace(self):
        timeline = Timeline(0)
        timeline.add(samples(0.1, 1000), 1.0)
        timeline.add(samples(0.4, 1000), 1.4)
        self.assertEqual(timeline.trusted_from, 0)
        self.assertIsNotNone(timeline.samples(1.0 + 0.2 - SETTLING_SECONDS, 0.2))

    def test_tells_when_there_was_sound(self):
        timeline = Timeline(0)
        self.assertEqual(timeline.add(samples(0.1), 0.1), set())
        self.assertEqual(timeline.add(samples(0.05, 1000), 0.2), {15, 16, 17, 18, 19})


class SilenceTest(unittest.TestCase):
    def test_adds_up_what_is_not_too_short(self):
        self.assertEqual(silence(set(range(100, 201)), 1, 2), 0)
        self.assertAlmostEqual(silence(set(range(150, 201)), 1, 2), 0.5)
        self.assertAlmostEqual(silence(set(range(100, 120)) | set(range(160, 201)), 1, 2), 0.4)
        self.assertEqual(silence(set(range(100, 201)) - set(range(130, 144)), 1, 2), 0)
        self.assertAlmostEqual(silence(set(), 1, 2), 1.01)


if __name__ == "__main__":
    unittest.main()
