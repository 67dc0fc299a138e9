"""The soak's verdict: it must see a leak, and must not take noise or a warm-up for one."""

import random
import unittest

from trend import Figure, Trend

COUNT = Figure("descriptors")
AMOUNT = Figure("memory, KB", is_amount=True)
TRACKS = range(5, 1001, 5)


def complaints(figure, value_after):
    """Of a run in which the figure has the value `value_after(tracks)`."""
    return Trend(figure, [(tracks, value_after(tracks)) for tracks in TRACKS]).complaints()


class TrendTest(unittest.TestCase):
    def test_a_constant_is_flat(self):
        self.assertEqual(complaints(COUNT, lambda tracks: 31), [])
        self.assertEqual(complaints(AMOUNT, lambda tracks: 14000), [])

    def test_noise_is_flat(self):
        noise = random.Random(1)
        self.assertEqual(complaints(COUNT, lambda tracks: 31 + noise.choice((0, 0, 0, 1))), [])
        self.assertEqual(complaints(AMOUNT, lambda tracks: 14000 + noise.randrange(-300, 300)), [])

    def test_a_step_in_the_first_fifth_is_flat(self):
        self.assertEqual(complaints(COUNT, lambda tracks: 31 if tracks < 150 else 50), [])
        self.assertEqual(complaints(AMOUNT, lambda tracks: 9000 if tracks < 150 else 14000), [])

    def test_a_fall_is_flat(self):
        self.assertEqual(complaints(COUNT, lambda tracks: 50 - tracks // 50), [])
        self.assertEqual(complaints(AMOUNT, lambda tracks: 16000 - 2 * tracks), [])

    def test_a_rising_count_is_named_with_its_rise(self):
        rises, ends = complaints(COUNT, lambda tracks: 31 + tracks // 100)
        self.assertRegex(rises, r"^descriptors: rises by (9\.\d|10\.\d) in 1000 tracks, 1 is too much$")
        self.assertEqual(ends, "descriptors: ends at 41, more than 2 above the first fifth, 31 to 33")

    def test_one_object_lost_in_five_hundred_tracks_is_seen(self):
        found, = complaints(COUNT, lambda tracks: 31 + tracks // 500)
        self.assertIn("rises by", found)

    def test_objects_lost_at_the_very_end_are_seen(self):
        found, = complaints(COUNT, lambda tracks: 31 if tracks < 995 else 34)
        self.assertIn("ends at 34", found)

    def test_a_rising_amount_is_named_with_its_rise(self):
        noise = random.Random(1)
        found, = complaints(AMOUNT, lambda tracks: 14000 + 1.2 * tracks + noise.randrange(-100, 100))
        self.assertRegex(found, r"^memory, KB: rises by 1\.[12]\d KB a track, 1 KB is too much$")

    def test_an_amount_may_rise_by_less_than_a_kilobyte(self):
        self.assertEqual(complaints(AMOUNT, lambda tracks: 14000 + 0.8 * tracks), [])

    def test_the_line_goes_through_the_values_after_the_first_fifth(self):
        trend = Trend(AMOUNT, [(tracks, 9000 if tracks <= 200 else 14000 + tracks / 2) for tracks in TRACKS])
        self.assertAlmostEqual(trend.slope, 0.5)
        self.assertAlmostEqual(trend.intercept, 14000)

    def test_a_figure_that_was_never_seen_is_not_flat(self):
        found, = complaints(COUNT, lambda tracks: 0)
        self.assertIn("none was ever seen", found)

    def test_values_that_cannot_be_compared_are_left_out(self):
        def value(tracks, rise):
            return None if 300 < tracks < 600 else 14000 + rise * tracks

        self.assertEqual(complaints(AMOUNT, lambda tracks: value(tracks, 0.5)), [])
        self.assertIn("1.50 KB a track", complaints(AMOUNT, lambda tracks: value(tracks, 1.5))[0])

    def test_too_few_values_tell_nothing(self):
        self.assertIn("unknown", Trend(COUNT, [(5, 31), (10, 31)]).complaints()[0])
        self.assertIn("unknown", complaints(AMOUNT, lambda tracks: None if tracks > 450 else 14000)[0])
        self.assertIn("unknown", complaints(AMOUNT, lambda tracks: None)[0])


if __name__ == "__main__":
    unittest.main()
