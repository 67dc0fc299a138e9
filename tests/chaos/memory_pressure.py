"""Tells when the system was short of memory."""

from pathlib import Path

# Half of what makes the kernel tell the player.
STALL_SECONDS = 0.1
PRESSURE_FILE = Path("/proc/pressure/memory")


def seconds_waited(file=PRESSURE_FILE):
    """How long some program or other has waited for memory since the start of the machine. OSError or IndexError if
    this kernel does not count it.
    """
    some = file.read_text(encoding="utf-8").splitlines()[0]
    return int(some.rpartition("total=")[2]) / 1e6


class MemoryPressure:
    def __init__(self, file=PRESSURE_FILE):
        """The file is the kernel's; without it, nobody is told of a shortage."""
        self._file = Path(file)
        self._waited = self._seconds_waited()

    def was_felt(self):
        """Whether programs have waited for memory for long since the last question."""
        before, self._waited = self._waited, self._seconds_waited()
        return self._waited - before >= STALL_SECONDS

    def _seconds_waited(self):
        try:
            return seconds_waited(self._file)
        except (OSError, IndexError):
            return 0
