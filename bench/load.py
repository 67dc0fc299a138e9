"""Makes the machine busy: processes that compute, one that fills the disk cache, and one that takes the memory.

They are in a memory group of their own, and so is whoever wants to be where memory is short. The rest of the machine
keeps its memory. They end with the process that started them.
"""

import ctypes
import multiprocessing
import os
import signal
import tempfile
import time
from contextlib import contextmanager, suppress
from pathlib import Path

PR_SET_PDEATHSIG = 1
MIB = 1 << 20
COMPUTING_PROCESSES = 8
GROUP_SIZE = 512 * MIB
# More than the group has, so that the file is never in the cache as a whole.
FILE_SIZE = 1024 * MIB
# What the process that takes memory leaves to the others in the group.
ROOM_IN_GROUP = 192 * MIB
STEP = 16 * MIB
# On a machine without memory groups, it takes memory until processes wait for it in so many per cent of the time, and
# leaves so much in any case.
PRESSURE = 5
ROOM_ON_MACHINE = 1536 * MIB
# It has to have taken the memory by then, and the file has to be written.
SETTLE_SECONDS = 10
# A group and the file that limits it, in both versions of the kernel's interface.
GROUPS = ((Path("/sys/fs/cgroup/memory/mireval-bench"), "memory.limit_in_bytes"),
          (Path("/sys/fs/cgroup/mireval-bench"), "memory.max"))


def stall_seconds(resource):
    """How long some process or other has waited for "cpu", "memory" or "io" since the machine was started."""
    some = Path(f"/proc/pressure/{resource}").read_text(encoding="utf-8").splitlines()[0]
    return int(some.rpartition("=")[2]) / 1e6


def _compute():
    while True:
        pass


def _fill_disk_cache(folder):
    # Without a name, so that the file goes with the process.
    with tempfile.TemporaryFile(dir=folder, buffering=0) as file:
        piece = os.urandom(MIB)
        for _ in range(FILE_SIZE // MIB):
            file.write(piece)
        while True:
            file.seek(0)
            while file.read(MIB):
                pass


def _machine_has_memory():
    before = stall_seconds("memory")
    time.sleep(0.1)
    lines = dict(line.split(":") for line in Path("/proc/meminfo").read_text(encoding="utf-8").splitlines())
    available = 1024 * int(lines["MemAvailable"].split()[0])
    return available > ROOM_ON_MACHINE and stall_seconds("memory") - before < 0.1 * PRESSURE / 100


def _take_memory(is_in_group):
    # If the kernel has to end a process, then this one.
    Path("/proc/self/oom_score_adj").write_text("1000", encoding="utf-8")
    taken = []
    while True:
        has_memory = len(taken) < (GROUP_SIZE - ROOM_IN_GROUP) // STEP if is_in_group else _machine_has_memory()
        if has_memory:
            taken.append(b"x" * STEP)
        else:
            time.sleep(0.1)


def _start(group, work, *arguments):
    def run():
        ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)
        if group:
            (group / "cgroup.procs").write_text(str(os.getpid()), encoding="utf-8")
        work(*arguments)

    process = multiprocessing.get_context("fork").Process(target=run, name=work.__name__, daemon=True)
    process.start()
    return process


def _make_group():
    """None if this machine does not let us make one."""
    for group, limit in GROUPS:
        try:
            group.mkdir(exist_ok=True)
            if (group / limit).exists():
                (group / limit).write_text(str(GROUP_SIZE), encoding="utf-8")
                return group
            group.rmdir()
        except OSError:
            pass
    return None


@contextmanager
def busy_machine(folder):
    """Makes the machine busy until the end of the block. The file is in this folder. Yields the words that go before a
    command, so that it runs in the memory group and at the usual priority. Fails if a process of the load ended early.
    """
    group = _make_group()
    processes = [_start(group, _compute) for _ in range(COMPUTING_PROCESSES)]
    try:
        processes.append(_start(group, _fill_disk_cache, folder))
        processes.append(_start(group, _take_memory, group is not None))
        time.sleep(SETTLE_SECONDS)
        yield (["sh", "-c", 'echo $$ >"$0" && exec chrt --other 0 "$@"', str(group / "cgroup.procs")] if group
               else ["chrt", "--other", "0"])
        ended = [process.name for process in processes if not process.is_alive()]
        assert not ended, f"the load has ended early: {ended}"
    finally:
        for process in processes:
            process.kill()
            process.join()
        if group:
            # After a failure a player may still be about to end. An empty group costs nothing and is used again.
            with suppress(OSError):
                group.rmdir()
