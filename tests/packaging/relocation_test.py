"""Installs the build into a folder, moves that elsewhere, and uses the player there."""

import os
import subprocess

from desktop_case import DesktopTest
from installed_player import InstalledPlayer


class RelocationTest(DesktopTest):
    def test_the_moved_tree_plays(self):
        first = self.session.folder / "first"
        subprocess.run(["cmake", "--install", os.environ["MIREVAL_BUILD"], "--prefix", first], check=True,
                       stdout=subprocess.DEVNULL, timeout=120)
        moved = self.session.folder / "moved, with spaces"
        first.rename(moved)

        player = InstalledPlayer(self.session, moved)
        recorder = self.listen()
        self.session.click(player.find_icon())
        player.press("Focus")
        self.hear_sound(recorder)
        player.wait_for_text("1 / 16")
        self.session.screenshot("playing")
        player.expect_own_files()
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))
