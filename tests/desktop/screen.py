"""Pictures of the screen."""

import subprocess

from png import write_png

# The main colour of the tray icon.
ICON_COLOUR = (0x5A, 0x48, 0xE0)
# Between points of one icon; it has white ones inside.
GAP = 8


def centre_of(rectangle):
    left, top, width, height = rectangle
    return left + width // 2, top + height // 2


class Screenshot:
    def __init__(self, environment, command=("import", "-window", "root", "-depth", "8", "ppm:-")):
        """The command writes the picture as PPM."""
        ppm = subprocess.run(command, env=environment, capture_output=True, timeout=20, check=True).stdout
        magic, size, depth, self.pixels = ppm.split(b"\n", 3)
        assert magic == b"P6" and depth == b"255", (magic, depth)
        self.width, self.height = map(int, size.split())

    def pixel(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.pixels[start:start + 3])

    def _points(self, colour):
        for y in range(self.height):
            row = self.pixels[3 * y * self.width:3 * (y + 1) * self.width]
            # The blue channel sorts out nearly all of a grey desktop at once.
            for x, blue in enumerate(row[2::3]):
                if abs(blue - colour[2]) < 20 and all(
                        abs(row[3 * x + channel] - colour[channel]) < 20 for channel in (0, 1)):
                    yield x, y

    def icons(self, colour=ICON_COLOUR):
        """Left, top, width and height of each area in the colour."""
        boxes = []
        for x, y in self._points(colour):
            box = next((box for box in boxes if box["left"] - GAP <= x <= box["right"] + GAP
                        and y <= box["bottom"] + GAP), None)
            if box is None:
                box = {"left": x, "top": y, "right": x, "bottom": y, "points": 0}
                boxes.append(box)
            box["left"] = min(box["left"], x)
            box["right"] = max(box["right"], x)
            box["bottom"] = y
            box["points"] += 1
        return [(box["left"], box["top"], box["right"] - box["left"] + 1, box["bottom"] - box["top"] + 1)
                for box in boxes if box["points"] >= 60]

    def icon_centre(self, colour=ICON_COLOUR):
        """The centre of the first such area, or None."""
        icons = self.icons(colour)
        return centre_of(icons[0]) if icons else None

    def crop(self, rectangle):
        """The pixels of a part, row by row."""
        left, top, width, height = rectangle
        return [self.pixel(x, y) for y in range(top, top + height) for x in range(left, left + width)]

    def save(self, path):
        write_png(path, self.width, self.height, self.pixels)
