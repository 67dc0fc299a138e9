"""Writes PNG pictures."""

import struct
import zlib


def write_png(path, width, height, pixels):
    """The pixels are bytes red, green, blue, row by row from the top."""
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    rows = b"".join(b"\0" + pixels[3 * y * width:3 * (y + 1) * width] for y in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 1))
                     + chunk(b"IEND", b""))
