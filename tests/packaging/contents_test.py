"""Looks at what is in the package."""

import gzip
import os
import platform
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from debian_package import DebianPackage
from elf_file import ElfFile

MODES = ("focus", "tempo", "creative", "relaxation")
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)


class ContentsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        path, = Path(os.environ["MIREVAL_PACKAGE"]).glob("*.deb")
        cls.package = DebianPackage(path)
        cls.archive = cls.package.files()
        cls.addClassCleanup(cls.archive.close)
        cls.names = {member.name for member in cls.archive if member.isfile()}

    def content(self, name):
        with self.archive.extractfile(name) as file:
            return file.read()

    def files_in(self, folder):
        return {name.removeprefix(f"{folder}/") for name in self.names if name.startswith(f"{folder}/")}

    def test_every_track_and_cover(self):
        self.assertEqual(self.files_in("./usr/share/mireval/PreviewAudio"),
                         {f"{mode}-{track}.m4a" for mode in MODES for track in range(1, 17)})
        self.assertEqual(self.files_in("./usr/share/mireval/CoverImages"),
                         {f"{mode}-{cover:02}.png" for mode in MODES for cover in range(1, 11)})
        for name in self.names:
            if name.endswith((".m4a", ".png")):
                content = self.content(name)
                self.assertEqual(content[4:8] if name.endswith(".m4a") else content[:4],
                                 b"ftyp" if name.endswith(".m4a") else b"\x89PNG", name)

    def test_every_part_has_its_place(self):
        self.assertEqual(self.files_in("./usr/bin"), {"mireval"})
        self.assertEqual(self.files_in("./usr/lib"), {"mireval/modules/libmireval-audio.so"})
        self.assertEqual(self.files_in("./usr/share/icons/hicolor"),
                         {f"{size}x{size}/apps/mireval.png" for size in ICON_SIZES} | {"scalable/apps/mireval.svg"})
        for name in ("mireval/MenuBarIcon.png", "applications/org.mireval.Mireval.desktop",
                     "metainfo/org.mireval.Mireval.metainfo.xml", "man/man1/mireval.1.gz"):
            self.assertIn(f"./usr/share/{name}", self.names)
        service = self.content("./usr/share/dbus-1/services/org.mireval.Mireval.service").decode()
        self.assertIn('Exec="/usr/bin/mireval" --service', service.splitlines())

    def test_licences_and_changes(self):
        copyright_file = self.content("./usr/share/doc/mireval/copyright").decode()
        for part in ("License: Expat", "2026 The Mireval authors", "Frank Wen", "Permission is hereby granted"):
            self.assertIn(part, copyright_file)
        self.assertIn("MIT licence", self.content("./usr/share/doc/mireval/soundtrack-credits.md").decode())
        release = platform.freedesktop_os_release().get("VERSION_ID")
        self.assertEqual(self.package.field("Version"),
                         os.environ["MIREVAL_VERSION"] + (f"~deb{release}" if release else ""))
        changes = gzip.decompress(self.content("./usr/share/doc/mireval/changelog.gz")).decode()
        self.assertTrue(changes.startswith(f"mireval ({self.package.field('Version')}) "), changes)

    def test_owners_permissions_and_dates(self):
        dates = {member.mtime for archive in (self.archive, self.package.control()) for member in archive}
        self.assertEqual(len(dates), 1, dates)
        for member in self.archive:
            self.assertEqual((member.uname, member.gname, member.uid, member.gid), ("root", "root", 0, 0), member.name)
            executable = member.isdir() or member.name == "./usr/bin/mireval"
            self.assertEqual(oct(member.mode), oct(0o755 if executable else 0o644), member.name)

    def test_no_scripts_run_at_installation(self):
        with self.package.control() as control:
            self.assertEqual({Path(name).name for name in control.getnames()} - {"."}, {"control", "md5sums"})

    def test_nothing_names_the_build_folder(self):
        folders = [os.environ[name].encode() for name in ("MIREVAL_SOURCE", "MIREVAL_BUILD")]
        for name in self.names:
            content = self.content(name)
            for folder in folders:
                self.assertNotIn(folder, content, name)

    def test_programs_are_hardened(self):
        for name, exports in (("./usr/bin/mireval", []),
                              ("./usr/lib/mireval/modules/libmireval-audio.so", ["mirevalMakeAudioPlayerFactory"])):
            with tempfile.NamedTemporaryFile() as file:
                file.write(self.content(name))
                file.flush()
                faults = ElfFile(file.name).faults(exports, is_program=not exports)
            self.assertEqual(faults, [], name)

    def test_relations(self):
        depends = [alternatives[0] for alternatives in self.package.relations("Depends")]
        for package in ("libc6", "libqt6quick6", "libqt6widgets6", "libpulse0", "libsystemd0",
                        "qml6-module-qtquick-shapes"):
            self.assertIn(package, depends)
        self.assertTrue([package for package in depends if re.fullmatch(r"libavformat\d+", package)], depends)
        for package in depends:
            self.assertFalse(re.search("qt5|-dev$|^fonts-", package), package)
        recommends = self.package.relations("Recommends")
        self.assertIn(["fonts-noto-cjk"], recommends)
        self.assertIn(["pulseaudio", "pipewire-pulse"], recommends)

    def test_lintian_finds_nothing(self):
        result = subprocess.run(["lintian", "--allow-root", "--pedantic", "--display-info", "--fail-on",
                                 "error,warning,info,pedantic", self.package.path],
                                capture_output=True, text=True, timeout=120)
        self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)

    def test_each_exception_has_a_reason(self):
        lines = self.content("./usr/share/lintian/overrides/mireval").decode().splitlines()
        exceptions = [number for number, line in enumerate(lines) if not line.startswith("#")]
        self.assertTrue(exceptions)
        for number in exceptions:
            self.assertTrue(number > 0 and lines[number - 1].startswith("# "), lines[number])
