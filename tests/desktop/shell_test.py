"""Starts the player as shells, launchers and impatient users do: with options, twice, and all at once."""

import configparser
import os
import shlex
import shutil
import signal
import subprocess
import time
from pathlib import Path

from descriptors import Descriptors
from desktop_case import BUNDLE, PROGRAM, DesktopTest, make_tones
from media import wait_for_player
from player import Player
from session import wait_for
from sound import longest_silence

DESKTOP_FILE = Path(__file__).parents[2] / "packaging/org.mireval.Mireval.desktop"
# A copy that only asks the first one needs no display.
NO_DISPLAY = {"DISPLAY": "", "WAYLAND_DISPLAY": ""}


def read_desktop_file():
    content = configparser.ConfigParser(interpolation=None, strict=True)
    content.optionxform = str
    content.read(DESKTOP_FILE, encoding="utf-8")
    return content


def non_blocking(path, flags):
    return os.open(path, flags & ~(os.O_CREAT | os.O_TRUNC) | os.O_NONBLOCK)


def arguments_in(group):
    """The arguments that a launcher passes for a group of the desktop file."""
    program, *arguments = shlex.split(read_desktop_file()[group]["Exec"])
    assert program == "mireval", program
    return arguments


class ShellCase(DesktopTest):
    copies = 0

    def start_copy(self, *arguments, **options):
        """Starts the player under a name of its own."""
        ShellCase.copies += 1
        return Player(self.session, PROGRAM, self.resources, arguments=arguments, name=f"copy-{ShellCase.copies}",
                      **options)

    def ask(self, *arguments):
        self.run_copy(*arguments, environment=NO_DISPLAY)


class SettingsTest(ShellCase):
    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60)

    def start_playing(self):
        player = self.start_copy()
        self.session.click(player.find_icon())
        player.press("Focus")
        recorder = self.listen()
        self.hear_sound(recorder)
        self.session.press_key("Escape")
        player.wait_until_closed()
        return player, recorder

    def test_panel_and_settings_on_demand(self):
        player, recorder = self.start_playing()
        icon = player.find_icon()

        # Another copy opens the panel, its key the settings.
        self.ask()
        player.wait_for_text("1 / 16")
        self.session.press_key("ctrl+comma")
        player.wait_for_text("Language")
        # Longer than the focus takes to move.
        time.sleep(0.5)
        self.session.screenshot("settings")
        self.assertIn("1 / 16", player.texts())
        self.session.click(icon)
        player.wait_until_gone("1 / 16")
        settings, = self.windows()
        # Window lists find the desktop file by the class.
        window_class = read_desktop_file()["Desktop Entry"]["StartupWMClass"]
        self.assertIn(settings, self.session.windows("--class", f"^{window_class}$"))

        # The windows open and close independently.
        self.ask()
        player.wait_for_text("1 / 16")
        self.session.screenshot("both")
        self.session.press_key("Escape")
        player.wait_until_gone("1 / 16")
        self.assertEqual(self.windows(), [settings])

        # There is one settings window at most. When it is minimised, a request brings it to the front.
        self.ask(*arguments_in("Desktop Action Settings"))
        self.assertEqual(self.windows(), [settings])
        self.session.run("xdotool", "windowminimize", "--sync", settings)
        self.assertEqual(self.windows(), [])
        self.ask("--settings")
        wait_for(lambda: self.windows() == [settings], "the settings to come back")
        wait_for(lambda: self.session.active_window() == settings, "the settings to be active")

        self.session.press_key("Escape")
        player.wait_until_closed()
        self.ask("--settings")
        player.wait_for_text("Language")
        window, = self.windows()
        self.session.focus(window)
        self.session.press_key("alt+F4")
        player.wait_until_closed()

        self.assertEqual(longest_silence(recorder.next(1)), 0)
        self.session.click(player.find_icon())
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_settings_beside_the_open_panel(self):
        player = self.start_copy()
        self.session.click(player.find_icon())
        player.wait_for_text("Select a mode")
        self.run_copy("--settings")
        player.wait_for_text("Language")
        # Longer than the focus takes to move.
        time.sleep(0.5)
        self.session.screenshot("beside")
        self.assertIn("Select a mode", player.texts())
        player.press("Focus")
        player.wait_for_text("1 / 16")
        self.assertIn("Language", player.texts())
        settings, = self.session.windows("--name", "^Settings")
        self.session.focus(settings)
        self.session.press_key("alt+F4")
        player.wait_until_gone("Language")
        self.session.click((20, 500))
        player.wait_until_closed()

    def test_the_keyboard_comes_back_to_the_panel(self):
        player = self.start_copy()
        self.session.click(player.find_icon())
        player.wait_for_text("Select a mode")
        panel, = self.windows()
        self.session.press_key("ctrl+comma")
        player.wait_for_text("Language")
        settings, = set(self.windows()) - {panel}
        self.session.focus(settings)
        self.session.press_key("Escape")
        wait_for(lambda: self.session.keyboard_window() == panel, "the panel to have the keyboard")
        # A window manager that is late gives it to what was active before the settings.
        bar = self.session.windows("--onlyvisible", "--class", "xfce4-panel")[0]
        result = self.session.run("xdotool", "windowfocus", bar)
        self.assertEqual(result.stderr, "")
        wait_for(lambda: self.session.keyboard_window() == panel, "the panel to have the keyboard again", 3)
        self.session.press_key("Escape")
        player.wait_until_closed()
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_a_start_with_settings(self):
        player = self.start_copy("--settings")
        player.wait_for_text("Language")
        self.session.click(player.find_icon())
        player.wait_for_text("Select a mode")
        self.assertIn("Language", player.texts())
        self.session.press_key("Escape")
        player.wait_until_gone("Select a mode")

        # By the button of its frame.
        frame, = (element for element in self.session.accessibility.elements("Mireval") if element.role == "frame")
        self.session.screenshot("frame")
        left, top, width, _ = frame.extents
        self.session.click((left + width - 10, top - 10))
        player.wait_until_closed()
        player.find_icon()
        self.assertTrue(player.is_running())


class ModeTest(ShellCase):
    MODES = ("focus", "tempo", "creative", "relaxation")

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60, self.MODES)

    def test_a_start_with_a_mode(self):
        player = self.start_copy(*arguments_in("Desktop Action tempo"))
        wait_for_player(self.session).wait_for_status("Playing")
        self.hear_sound(self.listen())
        self.assertEqual(self.windows(), [])
        self.session.click(player.find_icon())
        player.wait_for_text("1 / 16")
        self.assertEqual(player.find_button("Tempo").description, "Playing")
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_each_mode_in_the_running_copy(self):
        player = self.start_copy()
        self.session.click(player.find_icon())
        player.wait_for_text("Select a mode")
        for mode, title in zip(self.MODES, ("Focus", "Tempo", "Create", "Relax")):
            self.ask(*arguments_in(f"Desktop Action {mode}"))
            wait_for(lambda title=title: player.find_button(title).description == "Playing", title)
            self.assertEqual(len(self.windows()), 1)
        # As a press of the button of another mode does, so from the first track on.
        player.press("Next")
        player.wait_for_text("2 / 16")
        self.ask("--mode=relaxation")
        player.wait_for_text("1 / 16")
        self.assertEqual(player.find_button("Relax").description, "Playing")
        player.press("Pause")
        self.session.press_key("Escape")
        player.wait_until_closed()
        self.ask("--mode", "focus")
        wait_for_player(self.session).wait_for_status("Playing")
        self.assertEqual(self.windows(), [])
        self.assertEqual((player.output, player.errors), ("", ""))


class FewDescriptorsTest(ShellCase):
    """No window opens that could end the program."""

    NEEDED = 32
    NOTICE = "mireval: too many files are open; no window can be opened\n"

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60)

    def test_panel_and_settings_wait_for_descriptors(self):
        player = self.start_copy("--mode=focus")
        icon = player.find_icon()
        recorder = self.listen()
        self.hear_sound(recorder)
        start = recorder.mark()
        descriptors = Descriptors(player.process.pid)
        descriptors.take(self.NEEDED - 1)
        self.session.click(icon)
        wait_for(lambda: player.errors == self.NOTICE, "a notice")
        self.ask("--settings")
        wait_for(lambda: player.errors == 2 * self.NOTICE, "another one")
        self.assertEqual(self.windows(), [])

        # Not a double click.
        time.sleep(0.5)
        descriptors.take(self.NEEDED)
        # The first of the process: libraries open most.
        self.session.click(icon)
        player.wait_for_text("1 / 16")
        self.session.screenshot("few-descriptors")
        self.session.press_key("ctrl+comma")
        wait_for(lambda: "Language" in player.texts() or player.errors == 3 * self.NOTICE, "the settings or a notice")
        self.assertIn("1 / 16", player.texts())
        descriptors.give_back()
        self.ask("--settings")
        player.wait_for_text("Language")
        self.assertEqual(longest_silence(recorder.since(start)), 0)
        self.assertTrue(player.is_running())


class CopiesTest(ShellCase):
    desktop = {"sound": False}
    resources = BUNDLE

    def test_a_copy_that_hangs_and_one_that_is_killed(self):
        first = self.start_copy()
        first.find_icon()
        first.process.send_signal(signal.SIGSTOP)
        second = self.start_copy()
        self.assertEqual(second.exit_status(), 1)
        self.assertIn("does not answer", second.errors)
        self.assertEqual(len(second.errors.splitlines()), 1, second.errors)

        first.process.kill()
        first.process.wait(10)
        third = self.start_copy()
        third.find_icon()
        self.ask()
        third.wait_for_text("Select a mode")
        self.assertEqual(third.errors, "")

    def test_without_a_folder_of_the_session(self):
        environment = {"XDG_RUNTIME_DIR": "", "TMPDIR": str(self.session.folder)}
        first = self.start_copy(environment=environment)
        first.find_icon()
        second = self.start_copy(environment={**environment, **NO_DISPLAY})
        self.assertEqual(second.exit_status(), 0)
        self.assertRegex(second.errors, r"\Amireval: XDG_RUNTIME_DIR is not set; [^\n]*/mireval-\d+\n\Z")
        first.wait_for_text("Select a mode")

    def test_ten_at_once(self):
        copies = [self.start_copy() for _ in range(10)]
        wait_for(lambda: sum(copy.is_running() for copy in copies) == 1, "all but one to leave", 30)
        player, = (copy for copy in copies if copy.is_running())
        self.assertEqual({copy.exit_status() for copy in copies if copy is not player}, {0})
        self.assertEqual({copy.errors for copy in copies}, {""})
        player.wait_for_text("Select a mode")
        time.sleep(1)
        self.assertTrue(player.is_running())
        self.assertEqual(len(self.windows()), 1)
        self.session.screenshot("one-of-ten")
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)


class SettingsWithoutTrayTest(ShellCase):
    desktop = {"tray": False, "sound": False}
    resources = BUNDLE

    def test_both_windows_are_shown(self):
        player = self.start_copy("--settings")
        player.wait_for_text("Language")
        settings, = self.windows()
        player.wait_for_text("Select a mode")
        panel, = set(self.windows()) - {settings}
        self.session.screenshot("both")
        self.session.focus(settings)
        self.session.press_key("ctrl+w")
        player.wait_until_gone("Language")
        self.assertTrue(player.is_running())
        self.assertEqual(self.windows(), [panel])

        self.session.focus(panel)
        self.session.press_key("ctrl+comma")
        player.wait_for_text("Language")
        self.assertIn("Select a mode", player.texts())
        self.session.focus(panel)
        self.session.press_key("alt+F4")
        self.assertEqual(player.exit_status(), 0)


class OutputTest(ShellCase):
    """Without tracks, each press of a mode is a line on standard output."""

    desktop = {"tray": False, "sound": False}

    def setUp(self):
        super().setUp()
        self.resources = self.session.folder / "resources"
        self.resources.mkdir()
        shutil.copy(BUNDLE / "MenuBarIcon.png", self.resources)

    def fail_to_load(self, player):
        player.wait_for_text("Select a mode")
        for mode in ("Focus", "Tempo", "Relax"):
            self.assertTrue(self.session.accessibility.press(player.find_button(mode)))
        player.wait_for_text("1 / 16")
        self.assertTrue(self.session.accessibility.press(player.find_button("Quit")))
        self.assertEqual(player.exit_status(), 0)

    def test_a_reader_that_does_not_read(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        # The player's end stays a blocking one.
        with open(writer, "wb") as output, open(f"/proc/self/fd/{writer}", "wb", 0, opener=non_blocking) as filler:
            while filler.write(bytes(4096)):
                pass
            player = self.start_copy(output=output)
        self.fail_to_load(player)

    def test_closed_output(self):
        player = self.start_copy(shell='exec "$0" "$@" <&- >&- 2>&-')
        self.fail_to_load(player)
        self.assertEqual((self.session.folder / "run/mireval/lock").read_bytes(), b"")


class OptionsTest(ShellCase):
    """Options need no desktop."""

    desktop = {"screen": False, "tray": False, "sound": False}
    resources = None

    def answer(self, *arguments):
        """Exit status, standard output and standard error."""
        copy = self.start_copy(*arguments)
        return copy.exit_status(), copy.output, copy.errors

    def test_help_and_version(self):
        status, output, errors = self.answer("--help")
        self.assertEqual((status, errors), (0, ""))
        for option in ("--mode", "--settings", "--autostart", "--service", "--help", "--version"):
            self.assertIn(option, output)
        self.assertEqual(self.answer("--settings", "-h"), (0, output, ""))
        status, version, errors = self.answer("--version")
        self.assertRegex(version, r"^Mireval \d+\.\d+\.\d+\n$")
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(self.answer("-v"), (0, version, ""))
        self.assertFalse((self.session.folder / "run/mireval").exists())

    def test_output_that_cannot_be_written(self):
        for option in ("--help", "--version"):
            for redirection in (">/dev/full", ">&-"):
                result = self.session.run("sh", "-c", f'"$0" {option} {redirection}', PROGRAM)
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stderr, "mireval: standard output cannot be written\n")

    def test_a_reader_that_goes_away(self):
        reader, writer = os.pipe()
        os.close(reader)
        with open(writer, "wb") as output:
            copy = self.session.start([PROGRAM, "--help"], stdout=output, stderr=subprocess.PIPE, text=True)
            _, errors = copy.communicate(timeout=10)
        # A signal would have ended it.
        self.assertEqual((copy.returncode, errors), (1, "mireval: standard output cannot be written\n"))

    def test_mistakes(self):
        for arguments, message in ((["--foo"], "mireval: unknown option '--foo'\n"),
                                   (["-platform", "offscreen"], "mireval: unknown option '-p'\n"),
                                   (["focus"], "mireval: unexpected argument 'focus'\n"),
                                   (["--settings", ""], "mireval: unexpected argument ''\n")):
            status, output, errors = self.answer(*arguments)
            self.assertEqual((status, output), (2, ""))
            self.assertTrue(errors.startswith(message), errors)
            self.assertIn("mireval --help", errors)

    def test_mistaken_modes(self):
        choices = "focus, tempo, creative or relaxation\n"
        for arguments, message in ((["--mode"], "mireval: option '--mode' needs " + choices),
                                   (["--mode", "Focus"], "mireval: there is no mode 'Focus', only " + choices),
                                   (["--mode="], "mireval: there is no mode '', only " + choices)):
            self.assertEqual(self.answer(*arguments), (2, "", message))
        self.assertFalse((self.session.folder / "run/mireval").exists())
