"""Builds the package a second time, from a copy of the sources in another folder, and compares the two."""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

from debian_package import DebianPackage, differences

SOURCE = Path(os.environ["MIREVAL_SOURCE"])
SCRATCH = Path(os.environ["MIREVAL_SCRATCH"])


def git(*arguments):
    return subprocess.run(["git", "-C", SOURCE, *arguments], capture_output=True, text=True, check=True,
                          timeout=60).stdout


def copy_sources(copy):
    """What is, or could be, checked in."""
    for name in git("ls-files", "-z", "--cached", "--others", "--exclude-standard").split("\0"):
        if name and (SOURCE / name).exists():
            (copy / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCE / name, copy / name)


def build(copy, folder):
    # Another user's habits, too. What was compiled before must not come back.
    environment = {**os.environ, "CCACHE_DISABLE": "1", "LC_ALL": "C", "TZ": "Asia/Tokyo",
                   "SOURCE_DATE_EPOCH": git("log", "-1", "--format=%ct").strip()}
    tree = "build/release"
    for command in (
            ["cmake", "--preset", "release", "-D", "BUILD_TESTING=OFF",
             "-D", f"MIREVAL_SOUNDTRACK_CACHE={os.environ['MIREVAL_SOUNDTRACK_CACHE']}"],
            ["cmake", "--build", tree, "--target", "all", "soundtrack", "covers"],
            ["cmake/pack", tree, folder]):
        result = subprocess.run(command, cwd=copy, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                text=True, umask=0o027)
        if result.returncode:
            raise AssertionError(f"{command}: {result.stdout}")


class ReproductionTest(unittest.TestCase):
    def test_the_same_sources_give_the_same_package(self):
        self.addCleanup(shutil.rmtree, SCRATCH, ignore_errors=True)
        shutil.rmtree(SCRATCH, ignore_errors=True)
        copy = SCRATCH / "another folder"
        copy.mkdir(parents=True)
        copy_sources(copy)
        build(copy, SCRATCH / "package")
        first, = Path(os.environ["MIREVAL_PACKAGE"]).glob("*.deb")
        second, = (SCRATCH / "package").glob("*.deb")
        self.assertEqual(first.name, second.name)
        found = differences(DebianPackage(first), DebianPackage(second))
        self.assertFalse(found, "\n".join(found))
