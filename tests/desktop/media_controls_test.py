"""Uses the player as the rest of the desktop does: through its media controls, with clients of the desktop."""

import shutil
import subprocess
import threading
import time
from pathlib import Path
from urllib.parse import unquote, urlsplit

from bus_connection import BusConnection
from desktop_case import BUNDLE, PROGRAM, DesktopTest, cover_colour, make_covers, make_tones
from media import (APPLICATION, NAME, PATH, PLAYER, PROPERTIES, MediaPlayer, Playerctl, SignalMonitor,
                   player_names, wait_for_player)
from player import Player
from png import write_png
from session import PLAYERS_MENU, wait_for
from sound import longest_silence

APPLICATION_PROPERTIES = {
    "Identity": ("s", "read", "Mireval"),
    "DesktopEntry": ("s", "read", "org.mireval.Mireval"),
    "CanQuit": ("b", "read", True),
    "CanRaise": ("b", "read", True),
    "HasTrackList": ("b", "read", False),
    "SupportedUriSchemes": ("as", "read", []),
    "SupportedMimeTypes": ("as", "read", []),
}
# Type, access and the value while playing; None where the value has a test of its own.
PLAYER_PROPERTIES = {
    "PlaybackStatus": ("s", "read", "Playing"),
    "Rate": ("d", "readwrite", 1.0),
    "Metadata": ("a{sv}", "read", None),
    "Volume": ("d", "readwrite", 0.65),
    "Position": ("x", "read", None),
    "MinimumRate": ("d", "read", 1.0),
    "MaximumRate": ("d", "read", 1.0),
    "CanGoNext": ("b", "read", False),
    "CanGoPrevious": ("b", "read", False),
    "CanPlay": ("b", "read", True),
    "CanPause": ("b", "read", True),
    "CanSeek": ("b", "read", False),
    "CanControl": ("b", "read", True),
}
APPLICATION_METHODS = {"Raise": "", "Quit": ""}
PLAYER_METHODS = {"Play": "", "Pause": "", "PlayPause": "", "Stop": "", "Next": "", "Previous": "",
                  "Seek": "x Offset", "SetPosition": "o TrackId, x Position", "OpenUri": "s Uri"}
NO_TRACK = "/org/mpris/MediaPlayer2/TrackList/NoTrack"


class MediaControlsCase(DesktopTest):
    def start_playing(self, seconds=60, **options):
        """Starts the player, opens its panel and presses Focus; returns it, its recorder and its controls."""
        resources = make_covers(make_tones(self.session.folder / "resources", seconds))
        player = Player(self.session, PROGRAM, resources, **options)
        self.session.click(player.find_icon())
        recorder = self.listen()
        player.press("Focus")
        self.hear_sound(recorder)
        return player, recorder, wait_for_player(self.session)

    def end(self, player):
        self.assertTrue(player.is_running())
        self.assertEqual((player.output, player.errors), ("", ""))


class MediaControlsTest(MediaControlsCase):
    def test_before_the_first_track_there_are_none(self):
        player = Player(self.session, PROGRAM, make_tones(self.session.folder / "resources", 60, modes=()))
        self.session.click(player.find_icon())
        player.wait_for_text("Select a mode")
        self.assertEqual(player_names(self.session), [])
        # Nor as long as the track's file is missing.
        player.press("Focus")
        player.wait_for_text("1 / 16")
        time.sleep(1)
        self.assertEqual(player_names(self.session), [])
        self.assertTrue(player.is_running())

    def test_commands(self):
        player, recorder, controls = self.start_playing()
        playerctl = Playerctl(self.session)
        self.assertEqual(playerctl("status"), "Playing")
        self.assertIn(playerctl("metadata", "xesam:title"), player.texts())
        self.assertEqual(playerctl("metadata", "xesam:artist"), "Mireval • Focus")
        title = controls.title

        playerctl("play-pause")
        controls.wait_for_status("Paused")
        self.hear_silence(recorder)
        paused_at = controls.position_seconds
        monitor = SignalMonitor(self.session, controls)
        playerctl("pause")
        self.assertEqual(longest_silence(recorder.next(1.5)), 1.5)
        self.assertEqual(playerctl("status"), "Paused")
        self.assertEqual({controls.position_seconds for _ in range(5)}, {paused_at})

        playerctl("play")
        controls.wait_for_status("Playing")
        self.hear_sound(recorder)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 1})
        playerctl("play")
        self.assertEqual(longest_silence(recorder.next(1)), 0)
        self.assertEqual(playerctl("status"), "Playing")

        before, started = controls.position_seconds, time.monotonic()
        self.assertGreater(before, paused_at)
        positions = []
        while time.monotonic() < started + 2:
            positions.append(float(playerctl("position")))
        passed = time.monotonic() - started
        self.assertEqual(positions, sorted(positions))
        self.assertAlmostEqual(controls.position_seconds - before, passed, delta=0.3)

        # Methods that the player does not offer change nothing.
        for command in ("next", "previous"):
            playerctl.attempt(command)
        position = controls.position_seconds
        for method, *arguments in (("Next",), ("Previous",), ("Stop",), ("Seek", "x", "20000000"),
                                   ("SetPosition", "ox", controls.metadata["mpris:trackid"], "40000000"),
                                   ("OpenUri", "s", "file:///dev/null")):
            self.assertEqual(controls.attempt(PLAYER, method, *arguments), "", method)
        self.assertEqual(longest_silence(recorder.next(1)), 0)
        self.assertEqual((controls.status, controls.title), ("Playing", title))
        self.assertAlmostEqual(controls.position_seconds, position + 1.5, delta=1.5)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 1})

        playerctl("pause")
        self.hear_silence(recorder)
        playerctl("play-pause")
        self.hear_sound(recorder)
        self.end(player)

    def test_metadata(self):
        player, _, controls = self.start_playing()
        first = controls.metadata
        self.assertEqual(set(first), {"mpris:trackid", "mpris:length", "mpris:artUrl", "xesam:title", "xesam:album",
                                      "xesam:artist"})
        self.assertEqual({name: value["type"] for name, value in controls.get("Metadata")["data"].items()}, {
            "mpris:trackid": "o", "mpris:length": "x", "mpris:artUrl": "s", "xesam:title": "s", "xesam:album": "s",
            "xesam:artist": "as"})
        self.assertNotEqual(first["mpris:trackid"], NO_TRACK)
        self.assertAlmostEqual(first["mpris:length"] / 1e6, 60, delta=0.2)
        self.assertIn(first["xesam:title"], player.texts())
        self.assertEqual((first["xesam:album"], first["xesam:artist"]), ("Mireval", ["Mireval • Focus"]))
        self.assert_cover(first, 1)
        time.sleep(1.2)
        self.assertEqual(controls.metadata, first)

        player.press("Next")
        wait_for(lambda: controls.metadata["mpris:trackid"] != first["mpris:trackid"], "the second track")
        second = controls.metadata
        self.assertIn(second["xesam:title"], player.texts())
        self.assertNotEqual(second["xesam:title"], first["xesam:title"])
        self.assert_cover(second, 2)
        player.press("Previous")
        wait_for(lambda: controls.metadata == first, "the first track as it was")
        self.end(player)

    def assert_cover(self, metadata, position):
        url = urlsplit(metadata["mpris:artUrl"])
        self.assertEqual((url.scheme, url.netloc), ("file", ""))
        path = Path(unquote(url.path))
        self.assertTrue(path.is_absolute() and path.is_file(), path)
        pixel = subprocess.run(["convert", path, "-resize", "1x1!", "-depth", "8", "rgb:-"], capture_output=True,
                               timeout=20, check=True).stdout
        self.assertEqual(tuple(pixel), cover_colour(position))


class MediaPropertiesTest(MediaControlsCase):
    def test_types_and_values(self):
        player, _, controls = self.start_playing()
        self.assertEqual(self.session.run("busctl", "--user", "introspect", NAME, PATH).returncode, 0)
        interfaces = controls.introspect()
        for interface, properties, methods, signals in (
                (APPLICATION, APPLICATION_PROPERTIES, APPLICATION_METHODS, {}),
                (PLAYER, PLAYER_PROPERTIES, PLAYER_METHODS, {"Seeked": "x Position"})):
            described = interfaces[interface]
            self.assertEqual(described["methods"], methods)
            self.assertEqual(described["signals"], signals)
            self.assertEqual(described["properties"],
                             {name: (kind, access) for name, (kind, access, _) in properties.items()})
            everything = controls.get_all(interface)
            self.assertEqual(set(everything), set(properties))
            for name, (kind, _, expected) in properties.items():
                for value in (everything[name], controls.get(name, interface)):
                    self.assertEqual(value["type"], kind, name)
                    if expected is not None:
                        self.assertEqual(value["data"], expected, name)
        self.end(player)

    def test_mistakes_of_clients(self):
        player, recorder, controls = self.start_playing()
        track = controls.metadata["mpris:trackid"]
        for what in ((PLAYER, "Rewind"), ("org.mpris.MediaPlayer2.TrackList", "GetTracks"),
                     (PLAYER, "Pause", "s", "now"), (PLAYER, "Seek"), (PLAYER, "Seek", "s", "far"),
                     (PLAYER, "SetPosition", "sx", track, "1"), (PLAYER, "OpenUri", "i", "1"),
                     (APPLICATION, "Raise", "b", "true"),
                     (PROPERTIES, "Get", "ss", PLAYER, "Mood"), (PROPERTIES, "Get", "s", PLAYER),
                     (PROPERTIES, "Get", "ss", "org.mpris.MediaPlayer2.TrackList", "Tracks"),
                     (PROPERTIES, "GetAll", "i", "1"),
                     (PROPERTIES, "GetAll", "s", "org.mpris.MediaPlayer2.TrackList")):
            self.assertIn("failed", controls.attempt(*what), what)
        for name, kind, value in (("PlaybackStatus", "s", "Paused"), ("Position", "x", "0"), ("CanPlay", "b", "false"),
                                  ("Metadata", "a{sv}", "0"), ("Mood", "s", "tempo"), ("Volume", "s", "loud"),
                                  ("Rate", "b", "true")):
            self.assertIn("Failed", controls.attempt_to_set(PLAYER, name, kind, value), name)
        self.assertIn("Failed", controls.attempt_to_set(APPLICATION, "Identity", "s", "Other"))
        self.assertEqual(longest_silence(recorder.next(1)), 0)
        self.assertEqual(controls.status, "Playing")
        self.end(player)

    def test_settings_that_clients_may_not_change(self):
        player, recorder, controls = self.start_playing()
        monitor = SignalMonitor(self.session, controls)
        before = max(recorder.next(0.5))
        for value in ("2", "inf", "nan", "-1", "0.5"):
            self.assertEqual(controls.attempt_to_set(PLAYER, "Rate", "d", value), "", value)
        self.assertEqual(monitor.members(), {})
        volumes = ("0", "1", "-3", "nan")
        for count, value in enumerate(volumes, 1):
            self.assertEqual(controls.attempt_to_set(PLAYER, "Volume", "d", value), "", value)
            # A slider that shows the written value learns of the real one.
            wait_for(lambda: monitor.members() == {"PropertiesChanged": count}, "the volume in effect", 3)
        position, started = controls.position_seconds, time.monotonic()
        self.assertAlmostEqual(max(recorder.next(1)), before, delta=before / 20)
        self.assertAlmostEqual(controls.position_seconds - position, time.monotonic() - started, delta=0.3)
        self.assertEqual((controls.status, controls.get("Volume")["data"], controls.get("Rate")["data"]),
                         ("Playing", 0.65, 1.0))
        self.assertEqual(monitor.members(), {"PropertiesChanged": len(volumes)})
        self.end(player)

    def test_a_rate_of_zero_pauses(self):
        player, recorder, controls = self.start_playing()
        for _ in range(2):
            self.assertEqual(controls.attempt_to_set(PLAYER, "Rate", "d", "0"), "")
            controls.wait_for_status("Paused")
        self.hear_silence(recorder)
        self.assertEqual(controls.get("Rate")["data"], 1.0)
        controls.command("Play")
        self.hear_sound(recorder)
        self.end(player)


class MediaFollowerTest(MediaControlsCase):
    def test_a_follower_sees_one_line_for_each_change(self):
        player, _, controls = self.start_playing(seconds=6)
        playerctl = Playerctl(self.session)
        following = playerctl.follow("{{status}} {{xesam:title}}")
        wait_for(following.texts, "the first line")
        started = time.monotonic()
        for number in range(1, 5):
            if number > 1:
                wait_for(lambda: len(following.texts()) >= number, f"line {number}", 10)
            player.wait_for_text(f"{number} / 16", 2)
            self.assertIn(following.texts()[-1].removeprefix("Playing "), player.texts())
        time.sleep(max(0.0, started + 20 - time.monotonic()))
        lines = following.timed()
        self.assertEqual(len({text for _, text in lines}), len(lines), lines)
        self.assertIn(f"{len(lines)} / 16", player.texts())
        for (earlier, _), (later, _) in zip(lines[1:], lines[2:]):
            self.assertAlmostEqual(later - earlier, 6, delta=1.5)
        playerctl("pause")
        wait_for(lambda: following.texts()[-1] == f"Paused {controls.title}", "the line about the pause", 3)
        time.sleep(1)
        self.assertEqual(len(following.texts()), len(lines) + 1)
        self.end(player)


class MediaSignalsTest(MediaControlsCase):
    def test_nothing_is_sent_while_nothing_changes(self):
        player, recorder, controls = self.start_playing()
        playerctl = Playerctl(self.session)
        monitor = SignalMonitor(self.session, controls)
        self.assertEqual(longest_silence(recorder.next(10)), 0)
        self.assertEqual(monitor.members(), {})
        playerctl("pause")
        wait_for(monitor.members, "the signal of the pause", 3)
        time.sleep(5)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 1})
        playerctl("play")
        time.sleep(2)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 2})
        # The position starts over, so clients that count on from the old one need the signal.
        player.press("Next")
        wait_for(lambda: monitor.members() == {"PropertiesChanged": 3, "Seeked": 1}, "the signals of the next track", 3)
        time.sleep(2)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 3, "Seeked": 1})
        self.end(player)


class RaiseTest(MediaControlsCase):
    def test_the_panel_opens_and_stays_open(self):
        player, _, controls = self.start_playing()
        self.session.press_key("Escape")
        player.wait_until_closed()
        controls.call(APPLICATION, "Raise")
        player.wait_for_text("1 / 16")
        self.session.screenshot("raised")
        controls.call(APPLICATION, "Raise")
        time.sleep(1)
        self.assertIn("1 / 16", player.texts())
        self.session.screenshot("raised-twice")
        player.press("Pause")
        controls.wait_for_status("Paused")
        self.session.press_key("Escape")
        player.wait_until_closed()
        self.end(player)


class QuitTest(MediaControlsCase):
    def quit(self, player, controls):
        self.assertEqual(controls.attempt(APPLICATION, "Quit"), "")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))
        self.assertEqual(player_names(self.session), [])

    def test_while_the_panel_is_open(self):
        player, _, controls = self.start_playing()
        self.quit(player, controls)

    def test_while_the_panel_is_closed(self):
        player, _, controls = self.start_playing()
        self.session.press_key("Escape")
        player.wait_until_closed()
        self.quit(player, controls)


class SecondCopyTest(MediaControlsCase):
    ICON_COLOUR = (0xE0, 0x60, 0x20)

    def test_both_are_on_the_bus(self):
        first, recorder, first_controls = self.start_playing()
        self.session.press_key("Escape")
        first.wait_until_closed()

        resources = make_tones(self.session.folder / "others", 60, modes=("creative",))
        write_png(resources / "MenuBarIcon.png", 36, 36, bytes(self.ICON_COLOUR) * 36 * 36)
        # With a runtime folder of its own, or it would only open the first one's panel.
        runtime = self.session.folder / "second-run"
        runtime.mkdir(mode=0o700)
        sound = f"unix:{self.session.environment['XDG_RUNTIME_DIR']}/pulse/native"
        second = Player(self.session, PROGRAM, resources, name="second",
                        environment={"XDG_RUNTIME_DIR": str(runtime), "PULSE_SERVER": sound})
        self.session.click(second.find_icon(self.ICON_COLOUR))
        second.press("Create")
        wait_for(lambda: len(player_names(self.session)) == 2, "the second copy on the bus")
        first_name, second_name = player_names(self.session)
        self.assertEqual(first_name, NAME)
        self.assertTrue(second_name.startswith(NAME + ".instance"), second_name)
        self.session.screenshot("both")

        second_controls = MediaPlayer(self.session, second_name)
        second_controls.wait_for_status("Playing")
        self.assertEqual(first_controls.status, "Playing")
        self.assertEqual(first_controls.metadata["xesam:artist"], ["Mireval • Focus"])
        self.assertEqual(second_controls.metadata["xesam:artist"], ["Mireval • Creative"])
        self.assertNotIn("mpris:artUrl", second_controls.metadata)
        # Playerctl finds both by the name that they have in common.
        self.assertEqual(Playerctl(self.session)("--all-players", "status").splitlines(), ["Playing", "Playing"])

        second_controls.command("Pause")
        second_controls.wait_for_status("Paused")
        self.assertEqual(first_controls.status, "Playing")
        second_controls.command("Play")
        second.press("Quit")
        self.assertEqual(second.exit_status(), 0)
        wait_for(lambda: player_names(self.session) == [NAME], "the second copy to be gone")
        self.assertEqual(longest_silence(recorder.next(1)), 0)
        self.assertEqual(first_controls.status, "Playing")
        first_controls.command("Pause")
        self.hear_silence(recorder)
        self.end(first)


class WithoutBusTest(MediaControlsCase):
    desktop = {"tray": False}

    def test_it_plays_all_the_same(self):
        focus, play, leave = self.find_buttons("Focus", "Play", "Quit")
        resources = make_covers(make_tones(self.session.folder / "resources", 60))
        player = Player(self.session, PROGRAM, resources, environment={
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.session.folder}/nowhere"})
        corner = self.panel_at_rest()[:2]
        recorder = self.listen()

        def press(place):
            self.session.click((corner[0] + place[0], corner[1] + place[1]))

        press(focus)
        self.hear_sound(recorder)
        # Long enough for the player to look for a bus again.
        self.assertEqual(longest_silence(recorder.next(8)), 0)
        self.session.screenshot("playing")
        press(play)
        self.hear_silence(recorder)
        press(play)
        self.hear_sound(recorder)
        self.assertEqual(player_names(self.session), [])
        press(leave)
        self.assertEqual(player.exit_status(), 0)
        self.assertIn("no tray", player.errors)
        self.assertEqual(len(player.errors.splitlines()), 1, player.errors)
        self.assertEqual(player.output, "")


class BusRestartTest(MediaControlsCase):
    def test_the_controls_come_back(self):
        player, recorder, controls = self.start_playing(seconds=90)
        before = controls.get_all()
        self.session.stop_bus()
        self.assertEqual(longest_silence(recorder.next(4)), 0)
        self.assertTrue(player.is_running())

        self.session.start_bus()
        self.assertEqual(wait_for_player(self.session, 60).name, NAME)
        after = controls.get_all()
        self.assertGreater(after.pop("Position")["data"], before.pop("Position")["data"] + 3e6)
        self.assertEqual(after, before)
        self.assertEqual(longest_silence(recorder.next(1)), 0)
        monitor = SignalMonitor(self.session, controls)
        controls.command("Pause")
        controls.wait_for_status("Paused")
        self.hear_silence(recorder)
        self.assertEqual(monitor.members(), {"PropertiesChanged": 1})
        controls.command("PlayPause")
        self.hear_sound(recorder)

        # And once more, while paused.
        controls.command("Pause")
        controls.wait_for_status("Paused")
        self.session.stop_bus()
        time.sleep(1)
        self.session.start_bus()
        wait_for_player(self.session, 60)
        self.assertEqual(controls.status, "Paused")
        controls.command("Play")
        self.hear_sound(recorder)
        self.assertTrue(player.is_running())


class FloodTest(MediaControlsCase):
    CALLS = 10_000
    ROUNDS = 4

    def test_calls_in_a_row(self):
        player, recorder, controls = self.start_playing()
        # Usually the panel is closed while music plays for hours.
        self.session.press_key("Escape")
        player.wait_until_closed()
        title = controls.title
        memory = []
        failures = []
        flood = threading.Thread(target=self.flood, args=(player, memory, failures))
        flood.start()
        silences = []
        while flood.is_alive():
            silences.append(longest_silence(recorder.next(0.5)))
        flood.join()
        self.assertEqual(failures, [])
        self.assertEqual(len(memory), self.ROUNDS)
        self.assertEqual(max(silences), 0, silences)
        self.assertLess(memory[-1] - memory[1], 2048, memory)
        self.assertEqual((controls.status, controls.title), ("Playing", title))
        self.end(player)

    def flood(self, player, memory, failures):
        try:
            for _ in range(self.ROUNDS):
                for interface, method, arguments in ((PROPERTIES, "GetAll", ("s", PLAYER)), (PLAYER, "Next", ())):
                    client = BusConnection(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
                    for _ in range(self.CALLS):
                        client.send(NAME, PATH, interface, method, *arguments)
                    replies = client.receive_answers(self.CALLS)
                    client.close()
                    if replies != self.CALLS:
                        failures.append(f"{method}: {replies} replies")
                # This one does not even wait for the answers.
                client = BusConnection(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
                for _ in range(self.CALLS):
                    client.send(NAME, PATH, PROPERTIES, "GetAll", "s", PLAYER)
                client.close()
                MediaPlayer(self.session).get("PlaybackStatus")
                memory.append(player.anonymous_kilobytes())
        except Exception as error:  # Otherwise nobody would see errors of a thread.
            failures.append(repr(error))


class PlayersInPanelTest(MediaControlsCase):
    """The desktop panel's own menu of media players. It shows titles and artists, but no covers."""

    desktop = {"players_in_panel": True}
    PLUGIN = "wrapper-2.0"
    # From the right end of a player's entry to the middle of the button that pauses.
    PAUSE_BUTTON = 60

    def setUp(self):
        super().setUp()
        applications = Path(self.session.environment["XDG_DATA_HOME"], "applications")
        applications.mkdir()
        shutil.copy(BUNDLE / "MenuBarIcon.png", applications)
        # The panel lists only players with such a file.
        (applications / "org.mireval.Mireval.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Mireval\nExec={PROGRAM}\nIcon={applications}/MenuBarIcon.png\n",
            encoding="utf-8")

    def open_menu(self, title):
        """Opens the menu and returns the entry of the player of that track."""
        def entry():
            self.session.press_key("Escape")
            self.session.click(PLAYERS_MENU)
            time.sleep(0.5)
            return next((element for element in self.session.accessibility.opened_elements(self.PLUGIN)
                         if element.name == title), None)
        return wait_for(entry, f"an entry '{title}' in the menu")

    def test_the_menu_shows_and_controls_the_player(self):
        player, recorder, controls = self.start_playing()
        first = controls.title
        player.press("Next")
        wait_for(lambda: controls.title != first, "the second track")
        self.session.press_key("Escape")
        player.wait_until_closed()
        self.session.accessibility.listen()
        entry = self.open_menu(controls.title)
        self.session.screenshot("playing")
        button = entry.extents[0] + entry.extents[2] - self.PAUSE_BUTTON, entry.centre[1]
        self.session.click(button)
        controls.wait_for_status("Paused")
        self.hear_silence(recorder)
        self.session.screenshot("paused")
        self.session.click(button)
        controls.wait_for_status("Playing")
        self.hear_sound(recorder)

        # The entry itself raises the player.
        self.session.click((entry.extents[0] + 60, entry.centre[1]))
        player.wait_for_text("2 / 16")
        self.session.screenshot("raised")
        self.end(player)
