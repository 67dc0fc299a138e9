"""Reads the panel and hears what it announces on the desktop's accessibility bus, as a screen reader does."""

import re

from accessibility import CHECKED, FOCUSABLE, VALUE
from desktop_case import PROGRAM, DesktopTest, make_tones
from player import Player
from session import wait_for

MODES = ["Focus", "Tempo", "Create", "Relax"]
EVENTS = ("object:state-changed", "object:property-change", "object:property-change:accessible-value")


class ScreenReaderTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.session.accessibility.listen(*EVENTS)
        self.events = self.session.folder / "events"
        with open(self.events, "wb") as output:
            self.session.start(["stdbuf", "-oL", "dbus-monitor", "--address", self.session.accessibility.address(),
                                "type='signal',interface='org.a11y.atspi.Event.Object'"], stdout=output)
        resources = make_tones(self.session.folder / "resources", 20)
        self.player = Player(self.session, PROGRAM, resources)
        self.session.click(self.player.find_icon())
        self.player.wait_for_text("Select a mode")

    def wait_for_event(self, element, event, detail, value):
        """Waits for the element's announcement of the detail with that number."""
        def announced():
            messages = re.split(r"(?m)^signal ", self.events.read_text(encoding="utf-8"))
            return any(f"path={element.place[1]};" in message and f"member={event}\n" in message
                       and re.search(rf'string "{detail}"\n\s+int32 {value}\n', message) for message in messages)
        wait_for(announced, f"'{element.name}' to announce {detail}")

    def checked_modes(self):
        return [element.name for element in map(self.player.find_button, MODES) if CHECKED in element.states]

    def test_the_modes(self):
        focus, relax = self.player.find_button("Focus"), self.player.find_button("Relax")
        group = self.player.find_text("Modes")
        self.assertIn(group.role, ("panel", "grouping"))
        self.assertEqual([child.name for child in group.children()], MODES)
        for mode in group.children():
            self.assertEqual(mode.role, "radio button")
            self.assertIn(FOCUSABLE, mode.states)
            self.assertEqual(mode.description, "")
        self.assertEqual(self.checked_modes(), [])

        self.assertTrue(self.session.accessibility.press(focus))
        self.player.wait_for_text("1 / 16")
        self.assertEqual(self.checked_modes(), ["Focus"])
        self.wait_for_event(focus, "StateChanged", "checked", 1)
        self.assertEqual((focus.name, focus.description), ("Focus", "Playing"))
        self.assertTrue(self.session.accessibility.press(focus))
        self.player.wait_for_text("Play")
        self.assertEqual((self.checked_modes(), focus.description), (["Focus"], "Paused"))
        self.wait_for_event(focus, "PropertyChange", "accessible-description", 0)

        self.assertTrue(self.session.accessibility.press(relax))
        wait_for(lambda: self.checked_modes() == ["Relax"], "the other mode")
        self.wait_for_event(focus, "StateChanged", "checked", 0)
        self.wait_for_event(relax, "StateChanged", "checked", 1)
        self.assertEqual(focus.description, "")

    def test_the_progress(self):
        bar = self.player.find_by_role("progress bar")
        self.assertEqual(bar.name, "Now Playing")
        self.assertEqual([bar.get(VALUE, f"{name}Value") for name in ("Minimum", "Current", "Maximum")], [0, 0, 1])
        self.assertTrue(self.session.accessibility.press(self.player.find_button("Focus")))
        value = wait_for(lambda: bar.get(VALUE, "CurrentValue"), "some progress")
        self.assertLess(value, 0.5)
        self.assertGreater(wait_for(lambda: (now := bar.get(VALUE, "CurrentValue")) > value and now, "more"), value)
        self.wait_for_event(bar, "PropertyChange", "accessible-value", 0)

    def test_each_button(self):
        for name in (*MODES, "Previous", "Play", "Next", "Quit"):
            button = self.player.find_button(name)
            self.assertEqual(button.actions.count("Press"), 1, name)
            self.assertEqual(button.children(), [], name)
        self.assertIn(self.player.find_button("Quit").role, ("push button", "button"))
