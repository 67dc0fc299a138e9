"""The clocks of the programs under test, as far as a library preloaded into them can set them."""

import mmap
import struct
from pathlib import Path

SHIFTED_PROGRAMS = ("mireval", "pipewire", "pipewire-pulse", "pulseaudio", "wireplumber")


class Clocks:
    """The wall clock, and the clock that goes on while the machine sleeps; the third one stops then, so it is left
    alone. All offsets are seconds.
    """

    def __init__(self, library, folder):
        self._library = library
        self._file = folder / "clocks"
        self._file.write_bytes(bytes(16))
        with open(self._file, "r+b") as file:
            self._offsets = mmap.mmap(file.fileno(), 16)
        self.wall = 0.0
        self.asleep = 0.0

    def environment(self, command):
        """What a program needs so that its clocks are these."""
        if Path(command[0]).name not in SHIFTED_PROGRAMS:
            return {}
        return {"LD_PRELOAD": str(self._library), "MIREVAL_CLOCKS": str(self._file)}

    def set_wall(self, seconds):
        self.wall = seconds
        self._store()

    def sleep(self, seconds):
        """The machine has slept for so long."""
        self.wall += seconds
        self.asleep += seconds
        self._store()

    def _store(self):
        self._offsets[:] = struct.pack("=qq", int(self.wall * 1e9), int(self.asleep * 1e9))
