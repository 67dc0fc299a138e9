"""Makes the kernel report that memory is short, without harm to the machine: in a control group with little memory,
programs read a file again and again that does not fit.
"""

import os
import sys
import time
from pathlib import Path

from memory_pressure import seconds_waited

# Room for the readers, but not for the file.
LIMIT_BYTES = 40 << 20
FILE_BYTES = 96 << 20
READERS = 3
READER = f"""
import mmap, random, sys
with open(sys.argv[1], "rb") as file:
    memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
    while True:
        memory[4096 * random.randrange({FILE_BYTES >> 12})]
"""


def _group_folders():
    """Where control groups with a limit of memory can perhaps be made, each with the name of the limit's file."""
    groups = [line.split(":", 2) for line in Path("/proc/self/cgroup").read_text(encoding="ascii").splitlines()]
    own = {controllers: path for _, controllers, path in groups}
    for line in Path("/proc/self/mountinfo").read_text(encoding="utf-8").splitlines():
        fields, _, kind = line.partition(" - ")
        mount = Path(fields.split()[4])
        if kind.startswith("cgroup2 "):
            yield mount / own.get("", "/").lstrip("/"), "memory.high"
        elif kind.startswith("cgroup ") and "memory" in kind.split()[-1].split(","):
            yield mount / own.get("memory", "/").lstrip("/"), "memory.limit_in_bytes"
            yield mount, "memory.limit_in_bytes"


class MemoryShortage:
    """OSError if no control group can be made here."""

    def __init__(self, session, file):
        self._session = session
        self._group = self._make_group()
        self._file = file
        with open(file, "wb") as writer:
            for _ in range(FILE_BYTES >> 20):
                writer.write(os.urandom(1 << 20))
            writer.flush()
            os.fsync(writer.fileno())
            # What is read again then belongs to the group of those who read.
            os.posix_fadvise(writer.fileno(), 0, 0, os.POSIX_FADV_DONTNEED)

    @staticmethod
    def _make_group():
        for folder, limit in _group_folders():
            group = folder / f"mireval-chaos-{os.getpid()}"
            try:
                group.mkdir()
            except OSError:
                continue
            try:
                (group / limit).write_text(str(LIMIT_BYTES), encoding="ascii")
                return group
            except OSError:
                group.rmdir()
        raise OSError("no control group with a limit of memory can be made")

    def run(self, seconds):
        """Returns how long some task waited for memory meanwhile, in seconds. The player asks to be told of 0.2."""
        before = seconds_waited()
        join = f'echo $$ > "{self._group}/cgroup.procs"; exec "$@"'
        readers = [self._session.start(["sh", "-c", join, "sh", sys.executable, "-c", READER, str(self._file)])
                   for _ in range(READERS)]
        try:
            time.sleep(seconds)
        finally:
            for reader in readers:
                reader.kill()
                reader.wait(30)
        return seconds_waited() - before

    def end(self):
        self._group.rmdir()
        self._file.unlink()
