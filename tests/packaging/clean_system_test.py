"""Installs the package into a bare Debian, plays there, and removes it again. The desktop is the machine's; what the
player itself needs comes from the bare system alone.
"""

import os
from pathlib import Path

from clean_system import CleanSystem
from debian_package import DebianPackage
from desktop_case import SCREENSHOTS, DesktopTest
from installed_player import InstalledPlayer

HOME = Path("/home/somebody")
PREFERENCE = HOME / ".config/mireval/mireval.conf"


class CleanSystemTest(DesktopTest):
    desktop = {"tray": False}

    def setUp(self):
        path, = Path(os.environ["MIREVAL_PACKAGE"]).glob("*.deb")
        self.package = DebianPackage(path)
        self.system = CleanSystem(SCREENSHOTS / "system")
        self.addCleanup(self.system.end)
        self.root = self.system.root
        super().setUp()

    def inside(self, path):
        return self.root / path.relative_to("/")

    def start_player(self, **options):
        # libpulse creates a missing cookie. None of it may be left in the system.
        environment = {"HOME": str(HOME), "XDG_DATA_DIRS": "/usr/local/share:/usr/share",
                       "PULSE_COOKIE": str(self.session.folder / "pulse-cookie")}
        for name, folder in (("CONFIG", ".config"), ("CACHE", ".cache"), ("DATA", ".local/share"),
                             ("STATE", ".local/state")):
            environment[f"XDG_{name}_HOME"] = str(HOME / folder)
        return InstalledPlayer(self.session, Path("/usr"), root=self.root, environment=environment, **options)

    def assert_removed(self):
        with self.package.files() as archive:
            names = [member.name for member in archive if not member.isdir()]
        self.assertTrue(names)
        left = [name for name in names if os.path.lexists(self.root / name)]
        self.assertEqual(left, [])
        self.assertNotIn("mireval", self.system.run("dpkg-query", "--show"))

    def test_install_play_upgrade_and_remove(self):
        self.system.install(self.package.path)
        self.system.remove("mireval")
        self.assert_removed()
        self.inside(HOME).mkdir()
        # The folder of the sockets of X servers may be outside the session's.
        for folder in (self.session.folder, Path("/tmp/.X11-unix")):
            self.system.share(folder)
        before = self.system.contents()

        self.system.install(self.package.path)
        self.inside(PREFERENCE.parent).mkdir(parents=True)
        self.inside(PREFERENCE).write_text("[General]\napp.language.option=japanese\n", encoding="utf-8")
        # An upgrade over itself.
        self.system.install(self.package.path)

        # The desktop finds the icon where the package has put it.
        self.session.environment["XDG_DATA_DIRS"] = f"{self.root}/usr/share:/usr/local/share:/usr/share"
        self.session.start_tray()
        player = self.start_player()
        recorder = self.listen()
        self.session.click(player.find_icon())
        player.press("集中")
        self.hear_sound(recorder)
        player.wait_for_text("1 / 16")
        self.session.screenshot("playing")
        player.expect_own_files()
        copy = self.start_player(arguments=["--settings"], name="copy")
        self.assertEqual(copy.exit_status(), 0, copy.errors)
        player.wait_for_text("言語")
        self.session.screenshot("settings")
        # The panel has stayed open beside the settings.
        player.press("終了")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))

        self.system.remove("mireval")
        self.assert_removed()
        after = self.system.contents()
        preference = [str(path.relative_to("/")) for path in (PREFERENCE, PREFERENCE.parent, PREFERENCE.parent.parent)]
        self.assertEqual(sorted(set(after) - set(before)), sorted(preference))
        self.assertEqual(sorted(set(before) - set(after)), [])
        changed = [name for name in before if before[name] != after[name]]
        self.assertEqual(changed, [])
