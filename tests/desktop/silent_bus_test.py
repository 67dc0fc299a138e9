"""A session bus that accepts connections and never answers. The panel opens and the music plays all the same."""

import time
import unittest

from desktop_case import PROGRAM, DesktopTest, make_tones
from media import NAME, player_names
from player import Player
from session import wait_for

NO_TRAY = "mireval: the desktop has no tray for the icon; the panel opens as a window\n"
SILENT = "mireval: the session bus does not answer; screen readers cannot see the windows until the next start\n"


class SilentBusTest(DesktopTest):
    desktop = {"tray": False}

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60)

    def start(self, **options):
        return Player(self.session, PROGRAM, self.resources, **options)

    def press(self, place):
        left, top, _, _ = self.panel_at_rest()
        self.session.click((left + place[0], top + place[1]))

    def test_silent_from_the_start(self):
        focus, = self.find_buttons("Focus")
        self.session.pause_bus()
        # Qt's themes of these desktops ask the bus at the start.
        for desktop in "GNOME", "KDE", "":
            player = self.start(environment={"XDG_CURRENT_DESKTOP": desktop})
            self.panel_at_rest()
            # With Qt 6.8 its themes say on their own that they miss the bus.
            lines = [line for line in player.errors.splitlines(keepends=True)
                     if line.startswith("mireval: ")]
            self.assertEqual("".join(lines), SILENT + NO_TRAY)
            if desktop:
                player.process.terminate()
                player.process.wait(10)
                wait_for(lambda: not self.windows(), "the panel to go")
        self.press(focus)
        recorder = self.listen()
        track = self.hear_tone(recorder)
        # Our own services of the bus find it again.
        self.session.resume_bus()
        wait_for(lambda: NAME in player_names(self.session), "the media controls")
        self.assertEqual(self.hear_tone(recorder), track)

    def test_silent_before_the_first_panel(self):
        focus, = self.find_buttons("Focus")
        player = self.start()
        # The panel comes two seconds after the start.
        time.sleep(1)
        self.assertEqual(self.windows(), [])
        self.session.pause_bus()
        self.press(focus)
        self.hear_tone(self.listen())
        self.assertEqual(player.errors, NO_TRAY)

    def test_silent_with_an_open_panel(self):
        player = self.start()
        self.panel_at_rest()
        player.press("Focus")
        following = player.find_button("Next").centre
        recorder = self.listen()
        first = self.hear_tone(recorder)
        self.session.pause_bus()
        self.session.click(following)
        second = wait_for(lambda: {self.hear_tone(recorder)} - {first}, "the next track")
        self.run_copy("--settings")
        wait_for(lambda: self.session.windows("--name", "^Settings"), "the settings", 5)
        self.assertEqual({self.hear_tone(recorder)}, second)


if __name__ == "__main__":
    unittest.main()
