"""Uses the player on a Wayland desktop that has neither layers nor an X server, with a tray elsewhere."""

import time
from pathlib import Path

from desktop_case import PROGRAM, DesktopTest, make_tones
from player import Player
from session import wait_for

SOCKET = "plain"
# Two clicks that come sooner are a double click.
BETWEEN_CLICKS_SECONDS = 0.6


class PlainWaylandTest(DesktopTest):
    desktop = {"sound": False}

    def setUp(self):
        super().setUp()
        self.session.start(["weston", "--backend=headless-backend.so", f"--socket={SOCKET}"])
        wait_for(Path(self.session.environment["XDG_RUNTIME_DIR"], SOCKET).exists, "the compositor")
        self.player = Player(self.session, PROGRAM, make_tones(self.session.folder / "resources", 60),
                             environment={"DISPLAY": "", "WAYLAND_DISPLAY": SOCKET})

    def test_the_panel_is_a_window_where_the_desktop_puts_it(self):
        icon = self.player.find_icon()
        for _ in range(2):
            self.session.click(icon)
            self.player.wait_for_text("Select a mode")
            self.assertEqual(self.windows(), [])
            time.sleep(BETWEEN_CLICKS_SECONDS)
            self.session.click(icon)
            self.player.wait_until_closed()
            time.sleep(BETWEEN_CLICKS_SECONDS)
        self.run_copy("--settings", environment={"DISPLAY": "", "WAYLAND_DISPLAY": SOCKET})
        self.player.wait_for_text("Language")
        self.assertEqual((self.player.output, self.player.errors), ("", ""))
