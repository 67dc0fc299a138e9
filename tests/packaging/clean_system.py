"""A Debian system in a folder, of the same release as this one, with no more than its package manager needs."""

import shutil
import stat
import subprocess
from pathlib import Path

BARE_SYSTEM = Path(__file__).resolve().parents[2] / "script/bare-system"
# What the package manager writes about each of its actions.
JOURNALS = ("var/cache", "var/lib/apt", "var/lib/dpkg", "var/log")


class CleanSystem:
    """Needs root in a mount namespace of its own."""

    def __init__(self, folder):
        self.root = folder / "root"
        self._folder = folder
        self._mounted = []
        # A killed run leaves files; its mounts have gone with it.
        self.end()
        folder.mkdir(parents=True)
        subprocess.run([BARE_SYSTEM, "make", "same", self.root], check=True, timeout=300)
        for name in ("hosts", "resolv.conf"):
            shutil.copy(f"/etc/{name}", self.root / "etc")
        self._mount(self.root / "proc", "--types", "proc", "proc")
        self.run("apt-get", "update", "--quiet=2")

    def _mount(self, place, *what):
        subprocess.run(["mount", *what, place], check=True, timeout=20)
        self._mounted.append(place)

    def share(self, folder):
        """Makes a folder of the machine visible at the same place."""
        inside = self.root / folder.relative_to("/")
        inside.mkdir(parents=True, exist_ok=True)
        self._mount(inside, "--bind", folder)

    def end(self):
        """Deletes it. Nothing is deleted as long as something of the machine's is visible inside."""
        while self._mounted:
            subprocess.run(["umount", self._mounted[-1]], check=True, timeout=20)
            self._mounted.pop()
        if self._folder.exists():
            shutil.rmtree(self._folder)

    def run(self, *command):
        result = subprocess.run(["chroot", self.root, "env", "DEBIAN_FRONTEND=noninteractive", "LC_ALL=C", *command],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=400)
        if result.returncode:
            raise AssertionError(f"{command}: {result.stdout}")
        return result.stdout

    def install(self, package):
        """Installs a package's file, with the packages that it depends on but not those that it recommends."""
        copy = shutil.copy(package, self.root / "tmp")
        self.run("apt-get", "install", "--yes", "--quiet=2", "--no-install-recommends", "--reinstall",
                 f"/tmp/{Path(copy).name}")
        Path(copy).unlink()

    def remove(self, name):
        self.run("apt-get", "remove", "--yes", "--quiet=2", name)

    def contents(self):
        """All files by name, with mode, owner, group and size; mounted folders are left out."""
        found = {}
        folders = [self.root]
        while folders:
            for path in folders.pop().iterdir():
                if path in self._mounted:
                    continue
                status = path.lstat()
                name = str(path.relative_to(self.root))
                if path.is_dir() and not path.is_symlink():
                    folders.append(path)
                of_journal = name.startswith(JOURNALS)
                size = status.st_size if stat.S_ISREG(status.st_mode) and not of_journal else 0
                found[name] = (oct(status.st_mode), status.st_uid, status.st_gid, size)
        return found
