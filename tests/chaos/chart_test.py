"""The soak's picture."""

import tempfile
import unittest
from pathlib import Path

from chart import ALARM, LINE, draw
from screen import Screenshot
from trend import Figure, Trend


def line_colours(value_after):
    """The colours of lines in the picture of a run in which a figure has the value `value_after(tracks)`."""
    trend = Trend(Figure("descriptors"), [(tracks, value_after(tracks)) for tracks in range(5, 101, 5)])
    with tempfile.TemporaryDirectory() as folder:
        picture = Path(folder, "picture.png")
        draw(picture, "100 track changes", [trend, trend])
        shot = Screenshot.by_command(None, "convert", picture, "-depth", "8", "ppm:-")
    pixels = bytes(shot.pixels)
    return {"#" + pixels[start:start + 3].hex() for start in range(0, len(pixels), 3)} & {LINE, ALARM}


class ChartTest(unittest.TestCase):
    def test_a_flat_figure_has_a_calm_line(self):
        self.assertEqual(line_colours(lambda tracks: 30 + tracks % 2), {LINE})

    def test_a_rising_figure_has_a_line_of_alarm(self):
        self.assertEqual(line_colours(lambda tracks: 30 + tracks // 10), {ALARM})


if __name__ == "__main__":
    unittest.main()
