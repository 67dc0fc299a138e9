"""Traces the player for as many tracks as fill an hour, and shows that the check of a trace can fail."""

import re
import subprocess
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path

from desktop_case import PROGRAM, TRACKS_PER_MODE, DesktopTest, make_covers, make_tones
from media import MediaPlayer
from player import Player
from session import wait_for
from system_calls import SystemCalls


class CheckTest(unittest.TestCase):
    """Small programs, each of which does one thing."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mireval-trace-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def faults_of(self, script, **permitted):
        with tempfile.TemporaryDirectory(dir=self.folder) as folder:
            calls = SystemCalls(Path(folder))
            script = "import os, socket, sys\n" + textwrap.dedent(script)
            subprocess.run(calls.command(sys.executable, "-I", "-S", "-B", "-c", script), check=True, cwd=self.folder,
                           timeout=60)
            return calls.faults(program=sys.executable, **permitted)

    def assert_fault(self, script, expression):
        fault, = self.faults_of(script)
        self.assertRegex(fault, expression)

    def test_reading_is_no_fault(self):
        self.assertEqual(self.faults_of("open('/proc/self/status').read(); os.listdir('/'); os.stat('/')"), [])

    def test_what_is_permitted_is_no_fault(self):
        self.assertEqual(self.faults_of("""
            os.mkdir('mine'); open('mine/lock', 'w')
            server, client = socket.socket(socket.AF_UNIX), socket.socket(socket.AF_UNIX)
            server.bind('mine/socket'); server.listen(); client.connect('mine/socket')
            """, sockets=["mine/socket"], own_sockets=["mine/socket"], written=["mine", "mine/lock"]), [])

    def test_a_connection_to_the_machine_itself(self):
        faults = self.faults_of("socket.socket().connect_ex(('127.0.0.1', 9))", sockets=[".*"])
        self.assertEqual(len(faults), 2, faults)
        self.assertRegex(faults[0], r"^socket\(AF_INET, ")
        self.assertRegex(faults[1], r"^connect\(.*sin_port=htons\(9\).*127\.0\.0\.1")

    def test_a_datagram_needs_no_connection(self):
        self.assert_fault("socket.socket(socket.AF_INET6, socket.SOCK_DGRAM)", r"^socket\(AF_INET6, SOCK_DGRAM")

    def test_a_socket_of_the_kernel(self):
        self.assert_fault("socket.socket(socket.AF_NETLINK, socket.SOCK_RAW)", r"^socket\(AF_NETLINK")

    def test_another_socket(self):
        self.assert_fault("socket.socket(socket.AF_UNIX).connect_ex('other')", r'^connect\(.*"other".*ENOENT')
        self.assert_fault("socket.socket(socket.AF_UNIX).bind('offered')", r'^bind\(.*"offered"')

    def test_a_socket_that_is_no_file_is_another_one(self):
        fault, = self.faults_of("socket.socket(socket.AF_UNIX).bind('\\0offered')", own_sockets=["offered"])
        self.assertRegex(fault, r'^bind\(.*@"offered"')

    def test_a_file_written(self):
        self.assert_fault("open('new', 'x')", r'^openat\(.*"new".*O_CREAT')
        self.assert_fault("open('new', 'r+')", r'^openat\(.*"new", O_RDWR')

    def test_a_file_changed(self):
        for script in ("os.mkdir('one')", "os.rename('one', 'two')", "os.symlink('two', 'three')", "os.chmod('two', 0)",
                       "os.utime('two')", "os.fchmod(os.open('two', os.O_RDONLY), 0o700)", "os.unlink('three')"):
            with self.subTest(script=script):
                self.assert_fault(script, r"^(mkdir|rename|symlink|chmod|utimensat|fchmod|unlink)")

    def test_another_program(self):
        self.assert_fault("os.spawnv(os.P_WAIT, '/bin/true', ['true'])", r'^execve\("/bin/true"')

    def test_itself_once_more(self):
        self.assert_fault("os.spawnv(os.P_WAIT, sys.executable, [sys.executable, '-c', '0'])", r"^execve\(")


class PlayerTest(DesktopTest):
    desktop = {"system_bus": True}

    def trace(self, name):
        folder = self.session.folder / name
        folder.mkdir()
        return SystemCalls(folder)

    def start(self, calls, *arguments, name):
        command = calls.command(PROGRAM, *arguments)
        return Player(self.session, command[0], self.resources, arguments=command[1:], name=name)

    def faults_of(self, calls):
        folder = re.escape(str(self.session.folder))
        display = self.session.environment["DISPLAY"].removeprefix(":")
        return calls.faults(
            program=PROGRAM,
            # The display, the buses (the one of screen readers, too), the sound server, and the other copy.
            sockets=[f"@?/tmp/.X11-unix/X{display}", f"{folder}/bus", f"{folder}/system-bus", f"{folder}/run/at-spi/.*",
                     f"{folder}/run/pulse/native", f"{folder}/run/mireval/socket"],
            # Newer versions of libsystemd name their ends of connections.
            own_sockets=[f"{folder}/run/mireval/socket", "@[0-9a-f]+/bus/mireval/(user|system)"],
            # The kernel's file is where one asks to be told that memory is short.
            written=[f"{folder}/run/mireval(/lock)?", r"/proc/pressure/memory", r"/sys/fs/cgroup/.*memory\.pressure"])

    def test_an_hour_of_tracks(self):
        preference = Path(self.session.environment["XDG_CONFIG_HOME"], "mireval/mireval.conf")
        preference.parent.mkdir()
        preference.write_text("[General]\napp.language.option=english\n", encoding="utf-8")
        self.resources = make_covers(make_tones(self.session.folder / "resources", 3, modes=("focus", "tempo")))
        calls, calls_of_copy = self.trace("calls"), self.trace("calls-of-copy")

        player = self.start(calls, name="player")
        icon = player.find_icon()
        self.session.click(icon)
        player.press("Focus")
        player.wait_for_text("2 / 16")
        media = MediaPlayer(self.session)
        media.command("Pause")
        media.command("Play")
        self.session.press_key("Escape")
        player.wait_until_closed()

        # The panel is closed as long as most tracks last.
        tracks = str(self.resources / "PreviewAudio/focus-")

        def played():
            return [name for name in calls.opened() if name.startswith(tracks)]
        wait_for(lambda: len(played()) == TRACKS_PER_MODE, lambda: f"every track, having seen {played()}", 180)

        copy = self.start(calls_of_copy, "--settings", name="copy")
        self.assertEqual(copy.exit_status(), 0)
        player.wait_for_text("Language")
        self.session.click(icon)
        player.press("Tempo")
        player.wait_for_text("2 / 16")
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))

        # The trace is of what was seen.
        opened, connected = calls.opened(), calls.connected()
        self.assertGreaterEqual(len([name for name in opened if name.endswith(".m4a")]), TRACKS_PER_MODE + 2)
        self.assertIn(str(preference), opened)
        folder = self.session.folder
        self.assertLessEqual({f"{folder}/bus", f"{folder}/system-bus", f"{folder}/run/pulse/native"}, connected)
        self.assertEqual(calls_of_copy.connected(), {f"{folder}/run/mireval/socket"})
        self.assertEqual(self.faults_of(calls), [])
        self.assertEqual(self.faults_of(calls_of_copy), [])
