"""The machine below the player, as far as it can be spoilt: track files, covers, a disk, memory."""

import os
import resource
import shutil
from pathlib import Path

from memory_shortage import MemoryShortage
from small_disk import SmallDisk
from track_files import TrackFiles

PREFERENCE = "[General]\napp.language.option=system\n"


class Machine:
    def __init__(self, session, originals, copies):
        """Folders of resources; only the copies are changed."""
        self._session = session
        self._copies = copies
        self._original_covers = originals / "CoverImages"
        self.tracks = TrackFiles(originals / "PreviewAudio", copies / "PreviewAudio")
        # None for what this machine does not allow. Which steps there are, and so a seed's walk, depends on it.
        self.disk = self._attempt("a full disk", SmallDisk, session.folder / "disk")
        self.memory = self._attempt("a shortage of memory", MemoryShortage, session,
                                    originals.parent / f"memory-{os.getpid()}")
        if session.clocks is None:
            print("chaos: without clocks that are set: MIREVAL_SHIFTED_CLOCKS names no library", flush=True)
        # For the player alone.
        self.environment = self._folders_on_disk() if self.disk else {}

    @staticmethod
    def _attempt(what, kind, *arguments):
        try:
            return kind(*arguments)
        except OSError as error:
            print(f"chaos: without {what}: {error}", flush=True)
            return None

    def end(self):
        if self.disk:
            self.disk.unmount()
        if self.memory:
            self.memory.end()

    def _folders_on_disk(self):
        environment = {}
        for name, folder in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"), ("XDG_CACHE_HOME", "cache"),
                             ("XDG_DATA_HOME", "data"), ("XDG_STATE_HOME", "state"), ("TMPDIR", "tmp")):
            path = self.disk.folder / folder
            path.mkdir(mode=0o700)
            environment[name] = str(path)
        self._preference = self.disk.folder / "config/mireval/mireval.conf"
        self._preference.parent.mkdir()
        self._preference.write_text(PREFERENCE, encoding="utf-8")
        # As on every desktop. libpulse would make one, and complain when it cannot.
        cookie = self.disk.folder / "config/pulse/cookie"
        cookie.parent.mkdir()
        cookie.write_bytes(os.urandom(256))
        return environment

    def check_preference(self):
        """The player only reads it."""
        found = self._preference.read_text(encoding="utf-8"), os.listdir(self._preference.parent)
        if found != (PREFERENCE, [self._preference.name]):
            raise AssertionError(f"the preference is {found}")

    def spoil_covers(self):
        for cover in self._covers():
            cover.write_bytes(b"no picture")

    def remove_covers(self):
        for cover in self._covers():
            cover.unlink()

    def restore_covers(self):
        shutil.copytree(self._original_covers, self._copies / "CoverImages", dirs_exist_ok=True)

    def _covers(self):
        return sorted((self._copies / "CoverImages").iterdir())

    def keep_busy(self, seconds):
        """Every processor, from now on for so long."""
        for _ in range(os.cpu_count()):
            self._session.start(["timeout", str(seconds), "sh", "-c", "while :; do :; done"])


def resident_megabytes(pid):
    pages = int(Path(f"/proc/{pid}/statm").read_text(encoding="ascii").split()[1])
    return pages * resource.getpagesize() / (1 << 20)
