"""A disk of one mebibyte that can be filled and made read-only. It is in a mount namespace of this process's own, so
root is not needed where the kernel lets everybody have one.
"""

import ctypes
import os

CLONE_NEWNS, CLONE_NEWUSER = 0x20000, 0x10000000
MS_RDONLY, MS_REMOUNT, MS_REC, MS_PRIVATE = 0x1, 0x20, 0x4000, 0x40000
MNT_DETACH = 2
SIZE = "1m"
LIBC = ctypes.CDLL(None, use_errno=True)


def _check(result):
    if result != 0:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def enter_mount_namespace():
    """To be called while the process has one thread. Its programs run in the namespace as well. OSError if that is not
    allowed here.
    """
    user, group = os.geteuid(), os.getegid()
    if user == 0:
        _check(LIBC.unshare(CLONE_NEWNS))
    else:
        _check(LIBC.unshare(CLONE_NEWUSER | CLONE_NEWNS))
        for name, text in (("setgroups", "deny"), ("uid_map", f"{user} {user} 1"), ("gid_map", f"{group} {group} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    _check(LIBC.mount(None, b"/", None, MS_REC | MS_PRIVATE, None))


class SmallDisk:
    def __init__(self, folder):
        self.folder = folder
        self._filling = folder / "filling"
        folder.mkdir()
        self._mount(0)

    def _mount(self, flags):
        _check(LIBC.mount(b"none", bytes(self.folder), b"tmpfs", flags, f"size={SIZE}".encode()))

    def fill(self):
        """Until not one more byte fits."""
        size = 4096
        with open(self._filling, "wb", buffering=0) as file:
            while size:
                try:
                    file.write(b"x" * size)
                except OSError:
                    size //= 2

    def free(self):
        self._filling.unlink()

    def make_read_only(self):
        self._mount(MS_REMOUNT | MS_RDONLY)

    def make_writable(self):
        self._mount(MS_REMOUNT)

    def unmount(self):
        """Also while files on it are open."""
        _check(LIBC.umount2(bytes(self.folder), MNT_DETACH))
