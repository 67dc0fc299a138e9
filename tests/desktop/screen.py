"""Pictures of the screen."""

import subprocess

from png import write_png

# The main colour of the tray icon.
ICON_COLOUR = (0x5A, 0x48, 0xE0)


class Screenshot:
    def __init__(self, environment):
        ppm = subprocess.run(["import", "-window", "root", "-depth", "8", "ppm:-"],
                             env=environment, capture_output=True, timeout=20, check=True).stdout
        magic, size, depth, self.pixels = ppm.split(b"\n", 3)
        assert magic == b"P6" and depth == b"255", (magic, depth)
        self.width, self.height = map(int, size.split())

    def pixel(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.pixels[start:start + 3])

    def icon_centre(self, colour=ICON_COLOUR):
        """The centre of the area in the colour, or None."""
        points = []
        for y in range(self.height):
            row = self.pixels[3 * y * self.width:3 * (y + 1) * self.width]
            # The blue channel sorts out nearly all of a grey desktop at once.
            for x, blue in enumerate(row[2::3]):
                if abs(blue - colour[2]) < 20 and all(
                        abs(row[3 * x + channel] - colour[channel]) < 20 for channel in (0, 1)):
                    points.append((x, y))
        if len(points) < 60:
            return None
        xs, ys = [x for x, _ in points], [y for _, y in points]
        return (min(xs) + max(xs)) // 2, (min(ys) + max(ys)) // 2

    def save(self, path):
        write_png(path, self.width, self.height, self.pixels)
