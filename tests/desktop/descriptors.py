"""The file descriptors that a process may still open."""

import os
import resource


class Descriptors:
    def __init__(self, pid):
        self._pid = pid
        self._limits = resource.prlimit(pid, resource.RLIMIT_NOFILE)

    def take(self, spare=0):
        """From now on the process can open so many, and more only if it closes some. Returns how many it has."""
        used = {int(name) for name in os.listdir(f"/proc/{self._pid}/fd")}
        free = [number for number in range(len(used) + spare + 1) if number not in used]
        resource.prlimit(self._pid, resource.RLIMIT_NOFILE, (free[spare], self._limits[1]))
        return len(used)

    def give_back(self):
        resource.prlimit(self._pid, resource.RLIMIT_NOFILE, self._limits)
