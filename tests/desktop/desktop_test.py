"""Uses the player as its user does: with a pointer on a screen, and by listening."""

import os
import socket
import time

from desktop_case import BUNDLE, PROGRAM, DesktopTest, make_tones
from media import MediaPlayer
from player import Player
from session import wait_for
from sound import is_silent, longest_silence


class SoundtrackTest(DesktopTest):
    def test_a_working_day(self):
        has_soundtrack = (BUNDLE / "PreviewAudio" / "focus-1.m4a").exists()
        resources = None if has_soundtrack else make_tones(self.session.folder / "resources", 60)
        player = Player(self.session, PROGRAM, resources)
        icon = player.find_icon()
        recorder = self.listen()

        self.session.click(icon)
        player.wait_for_text("Select a mode")
        self.assertIn("1 / 3", player.texts())
        self.session.screenshot("opened")
        self.assertTrue(is_silent(recorder.next(0.5)))

        player.press("Focus")
        self.hear_sound(recorder)
        player.wait_for_text("1 / 16")
        self.assertNotIn("Select a mode", player.texts())
        self.session.screenshot("playing")

        player.press("Next")
        player.wait_for_text("2 / 16")
        self.hear_sound(recorder)
        self.session.screenshot("second")

        player.press("Pause")
        self.hear_silence(recorder)
        self.session.screenshot("paused")
        self.assertTrue(is_silent(recorder.next(1)))

        # The mode's own button resumes, while the play button would start over.
        player.press("Focus")
        self.hear_sound(recorder)
        self.assertIn("2 / 16", player.texts())

        self.session.press_key("Escape")
        player.wait_until_closed()
        self.session.screenshot("closed")
        self.hear_sound(recorder)

        self.session.click(icon)
        player.wait_for_text("2 / 16")
        self.session.click((200, 600))
        player.wait_until_closed()

        # For a moment after a click elsewhere has closed the panel, the icon does not reopen it.
        time.sleep(0.4)
        self.session.click(icon)
        player.wait_for_text("2 / 16")
        # Sooner, it would be the second click of a double click.
        time.sleep(0.5)
        self.session.click(icon)
        player.wait_until_closed()

        time.sleep(0.4)
        self.session.click(icon)
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        self.hear_silence(recorder)
        self.assertEqual((player.output, player.errors), ("", ""))


class EndOfTrackTest(DesktopTest):
    def test_the_next_track_follows_by_itself(self):
        player = Player(self.session, PROGRAM, make_tones(self.session.folder / "resources", 6))
        icon = player.find_icon()
        recorder = self.listen()
        self.session.click(icon)
        player.press("Focus")
        first = self.hear_tone(recorder)
        second = wait_for(lambda: (track := self.hear_tone(recorder)) != first and track, "the next tone", 15)
        player.wait_for_text("2 / 16", 5)
        self.session.screenshot("second")
        third = wait_for(lambda: (track := self.hear_tone(recorder)) != second and track, "the third tone", 15)
        self.assertEqual(len({first, second, third}), 3)
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)


class ReadyStreamTest(DesktopTest):
    def streams(self):
        """The number of each stream in the mixer, and whether it is corked."""
        lines = self.session.run("pactl", "list", "sink-inputs").stdout.splitlines()
        numbers = [line.split("#")[1] for line in lines if line.startswith("Sink Input #")]
        return dict(zip(numbers, [line.endswith("yes") for line in lines if "Corked:" in line], strict=True))

    def test_one_is_ready_while_the_panel_is_open_and_for_a_minute(self):
        player = Player(self.session, PROGRAM, make_tones(self.session.folder / "resources", 60))
        icon = player.find_icon()
        self.assertEqual(self.streams(), {})
        self.session.click(icon)
        ready = wait_for(self.streams, "a stream")
        self.assertEqual(list(ready.values()), [True])
        recorder = self.listen()
        player.press("Focus")
        first = self.hear_tone(recorder)
        player.press("Next")
        self.assertNotEqual(self.hear_tone(recorder), first)
        self.assertEqual(self.streams(), dict.fromkeys(ready, False))
        player.press("Pause")
        wait_for(lambda: self.streams() == ready, "the stream to be corked")

        self.session.press_key("Escape")
        player.wait_until_closed()
        closed = time.monotonic()
        controls = MediaPlayer(self.session)
        position = controls.position_seconds
        wait_for(lambda: not self.streams(), "the stream to go", 90)
        self.assertGreater(time.monotonic() - closed, 50)
        self.assertEqual(controls.position_seconds, position)
        controls.command("Play")
        self.hear_tone(recorder)
        self.assertGreater(controls.position_seconds, position)
        self.assertLess(controls.position_seconds, position + 5)
        self.assertEqual(player.errors, "")


class WithoutTrayTest(DesktopTest):
    desktop = {"tray": False, "sound": False}

    def test_the_panel_is_a_window(self):
        player = Player(self.session, PROGRAM, BUNDLE)
        player.wait_for_text("Select a mode")
        self.session.screenshot("window")
        self.assertIn("no tray", player.errors)
        self.assertEqual(len(player.errors.splitlines()), 1, player.errors)
        self.assertIn("Icon (64 x 64)", self.session.run("xprop", "-name", "Mireval", "_NET_WM_ICON").stdout)
        self.session.press_key("Escape")
        self.session.click((5, 5))
        self.assertIn("Select a mode", player.texts())
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)

    def test_closing_the_window_ends_the_player(self):
        player = Player(self.session, PROGRAM, BUNDLE)
        player.wait_for_text("Select a mode")
        self.session.focus(wait_for(self.windows, "the window")[0])
        self.session.press_key("alt+F4")
        self.assertEqual(player.exit_status(), 0)


class WithoutDisplayTest(DesktopTest):
    desktop = {"screen": False, "tray": False, "sound": False}

    def assert_refuses(self, environment):
        self.session.environment.update(environment)
        player = Player(self.session, PROGRAM, BUNDLE)
        self.assertEqual(player.exit_status(), 1)
        self.assertIn("no display", player.errors)
        self.assertEqual(len(player.errors.splitlines()), 1, player.errors)

    def test_none_named(self):
        self.assert_refuses({})

    def test_named_ones_do_not_answer(self):
        self.assert_refuses({"DISPLAY": ":9877", "WAYLAND_DISPLAY": "wayland-9877"})

    def test_a_server_that_never_answers(self):
        # It accepts the connection. The number is that of this process, which no other display has.
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(f"\0/tmp/.X11-unix/X{os.getpid()}")
            server.listen()
            start = time.monotonic()
            self.assert_refuses({"DISPLAY": f":{os.getpid()}"})
            self.assertGreater(time.monotonic() - start, 2.5)


class WithoutScreenTest(DesktopTest):
    desktop = {"tray": False, "sound": False}

    def test_the_display_has_no_such_screen(self):
        display = self.session.environment["DISPLAY"]
        player = Player(self.session, PROGRAM, BUNDLE, environment={"DISPLAY": f"{display}.1"})
        self.assertEqual(player.exit_status(), 1)
        self.assertEqual(player.errors, "mireval: no display answers; set DISPLAY or WAYLAND_DISPLAY\n")


class WithoutSoundServerTest(DesktopTest):
    desktop = {"sound": False}

    def test_the_music_waits_for_a_server(self):
        player = Player(self.session, PROGRAM, make_tones(self.session.folder / "resources", 60))
        controls = MediaPlayer(self.session)
        self.session.click(player.find_icon())
        player.press("Focus")
        player.wait_for_text("1 / 16")
        player.wait_for_text("Pause")
        player.press("Next")
        player.wait_for_text("2 / 16")
        controls.wait_for_status("Playing")
        self.session.screenshot("waiting")
        self.session.start_sound_server()
        first = self.hear_tone(self.listen())

        # And once more in the middle of the music, with other buttons.
        self.session.stop_sound_server()
        player.press("Next")
        player.wait_for_text("3 / 16")
        player.press("Pause")
        controls.wait_for_status("Paused")
        self.session.start_sound_server()
        recorder = self.listen()
        self.assertEqual(longest_silence(recorder.next(2)), 2)
        player.wait_for_text("3 / 16")
        player.press("Play")
        self.assertNotEqual(self.hear_tone(recorder), first)
        controls.wait_for_status("Playing")
        # Once for each outage.
        self.assertEqual(player.errors, 2 * "mireval: no sound server answers; the music waits for one\n")
        self.assertEqual(player.output, "")
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
