"""Starts the player and sends it requests over D-Bus, as launchers do, with the installed files."""

import os
import subprocess
import time
from pathlib import Path

from desktop_case import BUNDLE, PROGRAM, DesktopTest
from player import Player
from session import wait_for

ID = "org.mireval.Mireval"
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
ACTIVATE = (ID, "/org/mireval/Mireval", "org.freedesktop.Application", "Activate", "a{sv}", "0")


class BusPlayer(Player):
    """The player that the bus has started or knows."""

    def __init__(self, session):
        self._session = session


class ActivationCase(DesktopTest):
    desktop = {"tray": False, "sound": False}

    def setUp(self):
        super().setUp()
        prefix = self.session.folder / "a prefix"
        subprocess.run(["cmake", "--install", os.environ["MIREVAL_BUILD"], "--prefix", prefix, "--component",
                        "desktop"], check=True, capture_output=True, timeout=60)
        (prefix / "bin").mkdir()
        # It finds its resources beside its own file.
        (prefix / "bin/mireval").symlink_to(PROGRAM)
        self.desktop_file = prefix / f"share/applications/{ID}.desktop"
        # What the bus starts gets the environment of the bus.
        self.session.stop_bus()
        self.session.environment["XDG_DATA_DIRS"] = f"{prefix}/share:/usr/share"
        self.session.environment["PATH"] = f"{prefix}/bin:" + self.session.environment["PATH"]
        self.session.environment["MIREVAL_RESOURCES"] = str(BUNDLE)
        self.session.start_bus()
        self.session.start_tray()
        self.player = BusPlayer(self.session)

    def launch(self, *command):
        result = self.session.run(*command)
        self.assertEqual((result.returncode, result.stderr), (0, ""), command)

    def players(self):
        """The processes of the player."""
        found = []
        for name in Path("/proc").glob("[0-9]*/exe"):
            try:
                if name.resolve() == Path(PROGRAM).resolve() and self.is_ours(name.parent):
                    found.append(int(name.parent.name))
            except OSError:
                continue
        return found

    def is_ours(self, process):
        return f"XDG_RUNTIME_DIR={self.session.folder}/run".encode() in (process / "environ").read_bytes().split(b"\0")

    def close_panel(self):
        """With the Escape key: the panel has the keyboard."""
        self.session.press_key("Escape")
        self.player.wait_until_closed()


class LaunchTest(ActivationCase):
    def test_the_first_launch_shows_the_icon_and_later_ones_the_panel(self):
        self.assertIn(ID, self.session.run("gapplication", "list-apps").stdout.split())
        self.launch("gapplication", "launch", ID)
        self.player.find_icon()
        time.sleep(1)
        self.assertEqual((self.windows(), self.player.texts()), ([], []))
        self.session.screenshot("icon-only")
        processes = self.players()
        self.assertEqual(len(processes), 1)

        for command in (("gapplication", "launch", ID), ("gtk-launch", ID), ("gio", "launch", self.desktop_file)):
            self.launch(*command)
            self.player.wait_for_text("Select a mode")
            self.assertNotIn("Language", self.player.texts())
            self.close_panel()
        # An open panel stays open.
        for _ in range(2):
            self.launch("gapplication", "launch", ID)
            self.player.wait_for_text("Select a mode")
        self.session.screenshot("panel")
        time.sleep(0.5)
        self.assertEqual(len(self.windows()), 1)

        self.launch("gapplication", "action", ID, "Settings")
        self.player.wait_for_text("Language")
        self.assertEqual(self.players(), processes)

    def test_a_mode_may_be_the_first_request_and_a_later_one(self):
        for mode, title in (("tempo", "Tempo"), ("focus", "Focus")):
            self.launch("gapplication", "action", ID, mode)
            self.player.find_icon()
            self.assertEqual(self.windows(), [])
            self.launch("gapplication", "launch", ID)
            wait_for(lambda title=title: self.player.find_button(title).description == "Playing", title)
            self.close_panel()
        self.assertEqual(len(self.players()), 1)

    def test_the_settings_may_be_the_first_request(self):
        self.launch("gapplication", "action", ID, "Settings")
        self.player.wait_for_text("Language")
        self.player.find_icon()
        self.assertEqual(len(self.windows()), 1)
        self.assertNotIn("Select a mode", self.player.texts())
        self.session.screenshot("settings")
        self.launch("gapplication", "launch", ID)
        self.player.wait_for_text("Select a mode")
        self.assertEqual(len(self.players()), 1)

    def test_the_first_request_may_be_a_mistake(self):
        result = self.session.run("gapplication", "action", ID, "Dance")
        self.assertEqual(result.returncode, 1)
        self.assertIn("There is no action 'Dance'", result.stderr)
        self.player.find_icon()
        result = self.session.run("gapplication", "launch", ID, "/dev/null")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Files cannot be opened", result.stderr)
        self.assertEqual(self.windows(), [])
        self.launch("gapplication", "launch", ID)
        self.player.wait_for_text("Select a mode")


class StartedByHandTest(ActivationCase):
    def start_by_hand(self):
        player = Player(self.session, PROGRAM)
        player.find_icon()
        wait_for(lambda: "true" in self.session.run("busctl", "--user", "call", *BUS, "NameHasOwner", "s", ID).stdout,
                 "the player's name")
        return player

    def test_a_launcher_finds_it(self):
        player = self.start_by_hand()
        self.launch("gapplication", "launch", ID)
        player.wait_for_text("Select a mode")
        self.close_panel()
        self.launch("gapplication", "action", ID, "Settings")
        player.wait_for_text("Language")
        self.assertEqual(self.players(), [player.process.pid])
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_what_another_bus_starts_leaves_at_once(self):
        player = self.start_by_hand()
        copy = Player(self.session, PROGRAM, arguments=["--service"], name="copy")
        self.assertEqual(copy.exit_status(), 1)
        self.assertIn("a copy runs already", copy.errors)
        player.wait_for_text("Select a mode")

    def test_a_bus_that_came_back_learns_of_it(self):
        player = self.start_by_hand()
        self.session.stop_bus()
        time.sleep(1)
        self.session.start_bus()
        # The bus starts another copy, which hands the request over and ends. The call fails or succeeds, depending
        # on what the bus notices first, but it does not wait.
        started = time.monotonic()
        self.session.run("busctl", "--user", "call", *ACTIVATE)
        self.assertLess(time.monotonic() - started, 10)
        wait_for(lambda: len(self.windows()) == 1, "the panel")
        wait_for(lambda: self.players() == [player.process.pid], "the other copy to go")
        self.launch("busctl", "--user", "call", *ACTIVATE)
        self.launch("gapplication", "action", ID, "Settings")
        wait_for(lambda: len(self.windows()) == 2, "the settings")
        self.assertEqual(self.players(), [player.process.pid])
