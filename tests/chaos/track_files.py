"""The track files of the player under test, which can be damaged and put back."""

import os
import re
import shutil
from pathlib import Path

EXPECTED_TRACKS = Path(__file__).parents[1] / "library/ExpectedTracks.h"


def names_by_title():
    """The names of the track files, without their folder, by the tracks' titles."""
    entries = re.findall(r'\{Mood::\w+, "([^"]+)", "([^"]+)", ', EXPECTED_TRACKS.read_text(encoding="utf-8"))
    return {title: f"{name}.m4a" for name, title in entries}


def media_share(content, share):
    """How much of an MPEG-4 file's media is in that share of its bytes, when its index comes first."""
    start = content.index(b"mdat") + 4
    return max(0.0, (share * len(content) - start) / (len(content) - start))


class TrackFiles:
    def __init__(self, originals, copies):
        """Folders with files of the same names; only the copies are changed. The originals also have a file for
        `replace`.
        """
        self._originals = originals
        self._copies = copies
        self._names = names_by_title()

    def delete(self, title):
        self._copy_of(title).unlink()

    def truncate(self, title):
        """Cuts off the second half, also of what a program has open. Returns the share of the track that is left."""
        path = self._copy_of(title)
        content = path.read_bytes()
        os.truncate(path, len(content) // 2)
        return media_share(content, 0.5)

    def replace(self, title, other):
        """Puts the original with that name there. What a program has open stays."""
        path = self._copy_of(title)
        shutil.copy(self._originals / other, path.with_suffix(".new"))
        path.with_suffix(".new").rename(path)

    def spoil(self, title):
        """Puts a file there that is no music."""
        path = self._copy_of(title)
        path.with_suffix(".new").write_bytes(bytes(range(256)) * 64)
        path.with_suffix(".new").rename(path)

    def restore(self, title):
        self.replace(title, self._names[title])

    def _copy_of(self, title):
        return self._copies / self._names[title]
