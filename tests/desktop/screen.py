"""Pictures of the screen."""

import struct
import subprocess

from png import write_png

# The main colour of the tray icon.
ICON_COLOUR = (0x5A, 0x48, 0xE0)
# The largest distance between points of one icon, which has white parts.
GAP = 8
# Of the panel where windows blend, in device-independent pixels.
SHADOW = 16


def centre_of(rectangle):
    left, top, width, height = rectangle
    return left + width // 2, top + height // 2


def without_shadow(window):
    """The panel in the rectangle of its window, where that has a shadow. Both in device-independent pixels."""
    left, top, width, height = window
    return left + SHADOW, top + SHADOW, width - 2 * SHADOW, height - 2 * SHADOW


def is_shaded(pixel, colour):
    """Whether the pixel has that colour, and at most the panel's shadow on it."""
    return all(0.85 * full - 1 <= seen <= full for seen, full in zip(pixel, colour))


class Screenshot:
    def __init__(self, width, height, pixels):
        """The pixels are bytes red, green, blue, row by row from the top."""
        self.width, self.height, self.pixels = width, height, pixels

    @classmethod
    def by_command(cls, environment, *command):
        """The command writes the picture as PPM."""
        ppm = subprocess.run(command, env=environment, capture_output=True, timeout=20, check=True).stdout
        magic, size, depth, pixels = ppm.split(b"\n", 3)
        assert magic == b"P6" and depth == b"255", (magic, depth)
        return cls(*map(int, size.split()), pixels)

    @classmethod
    def of_framebuffer(cls, file):
        """The file is the one to which Xvfb draws, in the format of xwd."""
        content = file.read_bytes()
        header = struct.unpack(">25I", content[:100])
        size, width, height, bits, line, colours = (header[field] for field in (0, 4, 5, 11, 12, 19))
        assert (bits, line) == (32, 4 * width), (bits, line)
        start = size + 12 * colours
        pixels = bytearray(3 * width * height)
        for channel in range(3):
            pixels[channel::3] = content[start + 2 - channel:start + line * height:4]
        return cls(width, height, bytes(pixels))

    def pixel(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.pixels[start:start + 3])

    def row(self, x, y, width):
        """The pixels of a part of a row, as bytes."""
        start = 3 * (y * self.width + x)
        return self.pixels[start:start + 3 * width]

    def _points(self, colour):
        """The places of all pixels near the colour, row by row."""
        near = -1
        for channel, wanted in enumerate(colour):
            is_near = bytes(abs(value - wanted) < 20 for value in range(256))
            # All pixels at once: a loop over them would take most of the time that the tests need.
            near &= int.from_bytes(self.pixels[channel::3].translate(is_near), "big")
        hits = near.to_bytes(self.width * self.height, "big")
        place = hits.find(1)
        while place >= 0:
            yield place % self.width, place // self.width
            place = hits.find(1, place + 1)

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
