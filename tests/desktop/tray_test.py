"""Looks for the icon on bars of all kinds, and for the panel beside it."""

import json
import threading
import time

from bars import EDGES, HORIZONTAL, Tint2, XfcePanel
from bus_connection import BusConnection
from desktop_case import BUNDLE, PROGRAM, DesktopTest, make_tones
from media import PROPERTIES
from player import Player
from screen import ICON_COLOUR, centre_of, is_shaded
from session import wait_for
from sound import longest_silence

SCREEN = (0, 0, 1280, 800)
BACKGROUND = (0x20, 0xC0, 0x40)
# Of the panel, in device-independent pixels.
CORNER = 28
LARGEST_GAP = 12
DISTANCE_FROM_EDGE = 4
TOLERANCE = 3
ITEM = "org.kde.StatusNotifierItem"
WATCHER = ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher")


def clamp(value, lowest, highest):
    return max(lowest, min(value, highest))


def is_near(pixel, colour):
    return max(abs(a - b) for a, b in zip(pixel, colour)) < 24


class TrayCase(DesktopTest):
    desktop = {"tray": False, "sound": False}
    resources = BUNDLE
    scale = 1

    def setUp(self):
        super().setUp()
        self.session.set_background(BACKGROUND)

    def start_player(self, *arguments, **environment):
        self.player = Player(self.session, PROGRAM, self.resources, arguments=arguments, environment=environment)
        return self.player

    def end_player(self):
        self.player.process.kill()
        self.player.process.wait(10)
        wait_for(lambda: not self.icons(), "the icon to go")

    def start_compositor(self):
        compositor = self.session.start(["picom", "--backend", "xrender", "--config", "/dev/null"])
        wait_for(lambda: self.session.run("xdotool", "search", "--name", "^picom$").stdout, "the compositor")
        return compositor

    # The icon

    def item_place(self):
        """The service and the path of the icon's item."""
        items = self.get(*WATCHER, "RegisteredStatusNotifierItems")
        self.assertEqual(len(items), 1)
        service, _, path = items[0].partition("/")
        return service, f"/{path}"

    def item(self, name):
        """A property of the icon, as bars read it."""
        return self.get(*self.item_place(), ITEM, name)

    def get(self, *place):
        result = self.session.run("busctl", "--user", "--json=short", "get-property", *place)
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)["data"]

    def icons(self):
        return self.session.screenshot("icons").icons()

    def find_icon(self, bar, what="one icon, on the bar", elsewhere=0):
        """The rectangle of the one icon on the bar, when the screen shows so many icons elsewhere."""
        def icon():
            left, top, width, height = bar.rectangle() or (0, 0, 0, 0)
            icons = self.icons()
            inside = [icon for icon in icons for x, y in [centre_of(icon)]
                      if left <= x < left + width and top <= y < top + height]
            return inside if len(inside) == 1 and len(icons) == 1 + elsewhere else None
        return wait_for(icon, what)[0]

    def move(self, bar, edge, screen, *, at_end):
        """Moves the bar; returns the icon's rectangle there."""
        bar.move(edge, at_end=at_end)
        along = 0 if EDGES[edge][1] == HORIZONTAL else 1
        middle = screen[along] + screen[2 + along] // 2
        end = screen[along] + screen[2 + along] - 20 * self.scale
        left, top, width, height = screen
        edge_middle = {"top": (left + width // 2, top), "bottom": (left + width // 2, top + height - 1),
                       "left": (left, top + height // 2), "right": (left + width - 1, top + height // 2)}[edge]

        def icon():
            bar_left, bar_top, bar_width, bar_height = bar.rectangle() or (0, 0, 0, 0)
            x, y = edge_middle
            if not (bar_left <= x < bar_left + bar_width and bar_top <= y < bar_top + bar_height):
                return None
            icons = self.icons()
            return icons if len(icons) == 1 and abs(
                centre_of(icons[0])[along] - (end if at_end else middle)) <= 10 * self.scale else None
        return wait_for(icon, f"the icon at the {edge}")[0]

    # The panel

    def wait_for_panel(self):
        panel = wait_for(self.panel, "the panel", 5)
        # It is drawn a moment later. And the next click is not the second one of a double click.
        time.sleep(0.5)
        return panel

    def wait_until_closed(self):
        wait_for(lambda: not self.panel(), "the panel to close", 5)

    def open_panel(self, position, **click):
        self.session.click(position, **click)
        return self.wait_for_panel()

    def has_keyboard(self):
        return [self.session.keyboard_window()] == self.windows()

    def start_music(self, icon):
        """Opens the panel and presses a mode; returns a recorder once it hears the music."""
        self.open_panel(icon)
        self.player.press("Focus")
        recorder = self.listen()
        self.hear_sound(recorder)
        return recorder

    def close_panel(self):
        wait_for(self.has_keyboard, "the panel to have the keyboard", 5)
        self.session.press_key("Escape")
        self.wait_until_closed()

    def frame(self):
        """The sum of the frame's extents around the one window."""
        window, = self.windows()
        values = self.session.run("xprop", "-id", window, "_NET_FRAME_EXTENTS").stdout.partition("=")[2]
        return sum(map(int, values.split(","))) if values else 0

    def assert_beside(self, panel, edge, bar, click, screen):
        """The panel is beside the bar and next to what was clicked, on the screen of that rectangle."""
        where = panel, bar.rectangle(), click
        along = 0 if EDGES[edge][1] == HORIZONTAL else 1
        across = 1 - along
        near, far = sorted((panel, bar.rectangle()), key=lambda rectangle: rectangle[across])
        self.assertIs(near if edge in ("bottom", "right") else far, panel, where)
        gap = far[across] - (near[across] + near[2 + across])
        self.assertTrue(0 <= gap <= LARGEST_GAP * self.scale, (gap, where))
        room = screen[2 + across] - panel[2 + across]
        self.assertTrue(0 <= panel[across] - screen[across] <= room, where)

        length = panel[2 + along]
        first = screen[along] + DISTANCE_FROM_EDGE * self.scale
        last = screen[along] + screen[2 + along] - length - DISTANCE_FROM_EDGE * self.scale
        self.assertAlmostEqual(panel[along], clamp(click[along] - length // 2, first, last),
                               delta=TOLERANCE * self.scale, msg=where)

    def assert_corners(self, shot, panel, *, blended):
        """The desktop shows at the panel's corners, with the panel's shadow on it where windows blend. The panel is
        grey, so coloured pixels have the desktop in them.
        """
        left, top, width, height = panel
        side = int(CORNER * self.scale)
        for x, y in ((left, top), (left + width - side, top), (left, top + height - side),
                     (left + width - side, top + height - side)):
            pixels = shot.crop((x, y, side, side))
            uncovered = sum(is_shaded(pixel, BACKGROUND) for pixel in pixels) if blended else pixels.count(BACKGROUND)
            self.assertGreater(uncovered, side * side // 20, "the corner is not cut")
            self.assertLess(uncovered, side * side // 3, "too much is cut")
            self.assertEqual([pixel for pixel in pixels if max(pixel) < 100], [], "black in the corner")
            mixed = sum(max(pixel) - min(pixel) > 8 for pixel in pixels) - uncovered
            if blended:
                self.assertGreater(mixed, side // 2, "the edge is not smooth")
            else:
                self.assertEqual(mixed, 0, "something shines through")
        # Beside the panel.
        behind = shot.pixel(left - 2, top + height // 2)
        if blended:
            self.assertTrue(is_shaded(behind, BACKGROUND) and behind != BACKGROUND, behind)
        else:
            self.assertEqual(behind, BACKGROUND)
            self.assert_cut_in_pixels(shot, panel)

    def assert_cut_in_pixels(self, shot, panel):
        """The corners are mirror images, rise in steps of a pixel, and the outline is seen all along them."""
        left, top, width, height = panel
        side = int(1.6 * CORNER * self.scale)
        insets = {}
        for name, rows, columns in (("top left", range(height), range(width)),
                                    ("top right", range(height), range(width - 1, -1, -1)),
                                    ("bottom left", range(height - 1, -1, -1), range(width)),
                                    ("bottom right", range(height - 1, -1, -1), range(width - 1, -1, -1))):
            insets[name] = []
            for y in list(rows)[:side]:
                line = [shot.pixel(left + x, top + y) for x in list(columns)[:side]]
                inset = next((x for x, pixel in enumerate(line) if pixel != BACKGROUND), side)
                insets[name].append(inset)
                if inset < side:
                    self.assertNotIn(line[inset], ((255, 255, 255), (0, 0, 0)), (name, y, "no outline"))
        for name, found in insets.items():
            self.assertEqual(found, insets["top left"], name)
        steps = [above - below for above, below in zip(insets["top left"], insets["top left"][1:]) if above < side]
        self.assertIn(1, steps, "steps of a point")
        longest = max(len(run) for run in "".join("=" if step == 0 else "|" for step in steps[:side // 2]).split("|"))
        self.assertLess(longest, side // 4)


class PlaceCase(TrayCase):
    def open_at(self, bar, edge, screen, *, at_end, name):
        """Moves the bar, opens the panel and looks where it is; returns its rectangle and a screenshot."""
        click = centre_of(self.move(bar, edge, screen, at_end=at_end))
        panel = self.open_panel(click)
        try:
            shot = self.session.screenshot(name)
            self.assert_beside(panel, edge, bar, click, screen)
            return panel, shot
        finally:
            self.close_panel()

    def look_at_each_edge(self, bar, screen, *, blended=False, name):
        for edge in EDGES:
            for at_end in (False, True):
                place = f"{name}-{edge}-{'end' if at_end else 'middle'}"
                with self.subTest(place):
                    panel, shot = self.open_at(bar, edge, screen, at_end=at_end, name=place)
                    self.assert_corners(shot, panel, blended=blended)


class PanelPlaceTest(PlaceCase):
    def test_beside_the_bar_with_and_without_a_compositor(self):
        bar = XfcePanel(self.session)
        self.start_player()
        self.look_at_each_edge(bar, SCREEN, name="plain")
        compositor = self.start_compositor()
        self.look_at_each_edge(bar, SCREEN, blended=True, name="blended")
        left, top, _, height = self.open_panel(centre_of(self.find_icon(bar)))
        self.session.click((left - 8, top + height // 2))
        self.wait_until_closed()
        # Until then a click on the icon could be the one that closed the panel.
        time.sleep(0.5)
        compositor.kill()
        compositor.wait(10)
        panel, shot = self.open_at(bar, "top", SCREEN, at_end=True, name="plain-again")
        self.assert_corners(shot, panel, blended=False)
        self.assertEqual(self.player.errors, "")


class HighResolutionTest(PlaceCase):
    SCREEN = (0, 0, 2560, 1600)
    desktop = {**TrayCase.desktop, "screen_size": "2560x1600"}
    scale = 2

    def test_a_large_bar(self):
        bar = XfcePanel(self.session, thickness=52)
        self.start_player(QT_SCALE_FACTOR="2")
        self.look_at_each_edge(bar, self.SCREEN, name="large")
        self.assert_sharp(self.find_icon(bar), "large-icon")

    def test_a_bar_that_scales(self):
        bar = XfcePanel(self.session, environment={"GDK_SCALE": "2"})
        self.start_player(QT_SCALE_FACTOR="2")
        self.look_at_each_edge(bar, self.SCREEN, name="scaled")
        self.assert_sharp(self.find_icon(bar), "scaled-icon")

    def assert_sharp(self, icon, name):
        """Few pixels are mixtures of two colours. An enlarged smaller picture has about three times as many."""
        left, top, width, height = icon
        self.assertGreater(width, 36)
        shot = self.session.screenshot(name)
        colours = (shot.pixel(left - 1, top), ICON_COLOUR, (255, 255, 255))
        between = sum(not any(is_near(pixel, colour) for colour in colours) for pixel in shot.crop(icon))
        self.assertLess(between / (width * height), 0.16)


class TwoScreensTest(PlaceCase):
    """The bar goes to the primary screen; for its older versions that is the one with an output. At the left and right
    edges it reports a wrong work area. There the icon is in the middle, where its place alone tells the edge."""

    SCREENS = {"left": (0, 0, 1280, 800), "right": (1280, 0, 1280, 800)}
    desktop = {**TrayCase.desktop, "screen_size": "2560x800"}

    def set_screens(self, connected):
        for name in self.SCREENS:
            self.session.run("xrandr", "--delmonitor", name)
        for name, (left, top, width, height) in self.SCREENS.items():
            marked, output = (f"*{name}", "screen") if name == connected else (name, "none")
            result = self.session.run("xrandr", "--setmonitor", marked, f"{width}/320x{height}/200+{left}+{top}",
                                      output)
            self.assertEqual(result.returncode, 0, result.stderr)

    def test_opens_on_the_screen_of_the_bar(self):
        self.set_screens("left")
        bar = XfcePanel(self.session)
        for left_scale, right_scale in ((1, 1), (1, 2), (2, 1)):
            self.start_player(QT_SCREEN_SCALE_FACTORS=f"left={left_scale};right={right_scale}")
            for name, self.scale in (("left", left_scale), ("right", right_scale)):
                bar.kill()
                self.set_screens(name)
                bar.start()
                self.find_icon(bar)
                for edge in EDGES:
                    place = f"{name}-{left_scale}-{right_scale}-{edge}"
                    with self.subTest(place):
                        self.open_at(bar, edge, self.SCREENS[name], at_end=EDGES[edge][1] == HORIZONTAL, name=place)
            self.end_player()


class ClicksTest(TrayCase):
    # From the first click on.
    SETTLING_SECONDS = 0.6

    def watch(self, seconds):
        """Whether the panel is open, as it changes during the next so many seconds."""
        states = [self.panel() is not None]
        limit = time.monotonic() + seconds
        while time.monotonic() < limit:
            if (state := self.panel() is not None) != states[-1]:
                states.append(state)
            time.sleep(0.02)
        return states

    def test_a_click_of_any_kind(self):
        bar = XfcePanel(self.session)
        self.start_player()
        icon = centre_of(self.find_icon(bar))

        with self.subTest("held"):
            self.open_panel(icon, hold=1.5)
            self.assertEqual(self.watch(1), [True])
            self.session.click(icon, hold=1.5)
            self.wait_until_closed()
            self.assertEqual(self.watch(1), [False])

        with self.subTest("short"):
            for _ in range(3):
                self.open_panel(icon)
                self.session.click(icon)
                self.wait_until_closed()
                self.assertEqual(self.watch(self.SETTLING_SECONDS), [False])

        with self.subTest("double"):
            for number in range(6):
                self.session.click(icon, times=2)
                self.assertEqual(self.watch(1)[-1], number % 2 == 0, number)

        with self.subTest("at the icon's edge"):
            panel = self.open_panel((icon[0] - 8, icon[1]))
            self.session.screenshot("icon-edge")
            self.assert_beside(panel, "top", bar, (icon[0] - 8, icon[1]), SCREEN)
            self.close_panel()

        with self.subTest("elsewhere"):
            for position in ((200, 600), (200, icon[1])):
                self.open_panel(icon)
                self.session.click(position)
                self.wait_until_closed()
                self.assertEqual(self.watch(self.SETTLING_SECONDS), [False])

        with self.subTest("middle button"):
            self.open_panel(icon, button="middle")
            self.close_panel()
        self.assertEqual(self.player.errors, "")

    def test_the_menu_of_a_bar_that_wants_one(self):
        self.session.accessibility.listen()
        bar = XfcePanel(self.session)
        self.start_player()
        icon = centre_of(self.find_icon(bar))
        self.session.click(icon, button="right")
        time.sleep(0.5)
        self.session.screenshot("menu")
        items = wait_for(lambda: [element for element in self.session.accessibility.opened_elements("wrapper-2.0")
                                  if "menu item" in element.role], "the menu")
        self.assertEqual([item.name for item in items], ["Mireval"])
        self.assertIsNone(self.panel())
        panel = self.open_panel(items[0].centre)
        self.session.screenshot("from-menu")
        self.assert_beside(panel, "top", bar, items[0].centre, SCREEN)
        self.close_panel()


class EmbeddedIconTest(TrayCase):
    """A tray without D-Bus."""

    def test_shown_in_its_own_colours_until_there_is_a_better_place(self):
        seen = []
        bar = None
        self.start_player()
        for name, colour in (("dark", 0x101010), ("light", 0xF0F0F0)):
            if bar:
                bar.kill()
            bar = Tint2(self.session, colour)
            left, top, width, height = self.find_icon(bar)
            shot = self.session.screenshot(name)
            seen.append(shot.crop((left + 4, top + 4, width - 8, height - 8)))
            around = (colour >> 16,) * 3
            for place in ((left - 2, top - 2), (left, top), (left + width - 1, top + height - 1)):
                self.assertEqual(shot.pixel(*place), around, "no square behind the icon")
        self.assertEqual(*seen)
        self.assertGreater(sum(is_near(pixel, ICON_COLOUR) for pixel in seen[0]), len(seen[0]) // 3)

        icon = centre_of((left, top, width, height))
        for button in ("left", "right", "middle"):
            with self.subTest(button):
                panel = self.open_panel(icon, button=button)
                shot = self.session.screenshot(f"{button}-click")
                self.assert_beside(panel, "bottom", bar, icon, SCREEN)
                self.assert_corners(shot, panel, blended=False)
                self.session.click(icon, button=button)
                self.wait_until_closed()
                time.sleep(0.4)
                self.assertIsNone(self.panel())

        before = self.session.windows("--class", "tint2")
        compositor = self.start_compositor()
        # It starts anew then, and embeds the icon anew.
        wait_for(lambda: (now := self.session.windows("--class", "tint2")) and not set(now) & set(before),
                 "the bar on the compositor")
        icon = centre_of(self.find_icon(bar))
        panel = self.open_panel(icon)
        shot = self.session.screenshot("blended")
        self.assert_beside(panel, "bottom", bar, icon, SCREEN)
        self.assert_corners(shot, panel, blended=True)
        self.close_panel()
        compositor.kill()
        compositor.wait(10)

        other = XfcePanel(self.session)
        self.find_icon(other, "one icon, on the bar that has come")
        self.assertEqual(self.item("Id"), "mireval")
        self.session.screenshot("moved")
        other.kill()
        icon = centre_of(self.find_icon(bar, "one icon, back on the bar that has stayed"))
        self.session.screenshot("moved-back")
        self.open_panel(icon)
        self.close_panel()
        self.assertEqual(self.player.errors, "")


class LateBarTest(TrayCase):
    def test_a_window_until_there_is_a_bar(self):
        self.start_player()
        self.wait_for_panel()
        self.assertGreater(self.frame(), 0)
        self.session.screenshot("window")
        window, = self.windows()
        self.session.run("xdotool", "windowminimize", "--sync", window)
        self.assertIsNone(self.panel())
        self.run_copy()
        self.wait_for_panel()
        self.assertGreater(self.frame(), 0)

        bar = XfcePanel(self.session)
        # The window's frame shows an icon, too.
        icon = centre_of(self.find_icon(bar, elsewhere=1))
        self.assertEqual(self.item("Id"), "mireval")
        self.session.screenshot("icon")
        self.session.focus(self.windows()[0])
        self.session.press_key("alt+F4")
        self.wait_until_closed()
        panel = self.open_panel(icon)
        self.session.screenshot("drop-down")
        self.assertEqual(self.frame(), 0)
        self.assert_beside(panel, "top", bar, icon, SCREEN)
        self.close_panel()
        self.run_copy()
        self.wait_for_panel()
        self.session.screenshot("copy")
        self.assertEqual(self.frame(), 0)
        self.close_panel()

        # Without the bar the player stays, and a copy still opens its window.
        bar.kill()
        wait_for(lambda: not self.icons(), "the icon to go")
        self.run_copy()
        self.wait_for_panel()
        self.assertGreater(self.frame(), 0)
        self.session.screenshot("window-again")
        self.assertTrue(self.player.is_running())


class SlowLoginTest(TrayCase):
    PATIENCE_SECONDS = 30

    def test_an_untouched_window_gives_way_to_the_icon(self):
        self.start_player()
        self.wait_for_panel()
        bar = XfcePanel(self.session)
        icon = centre_of(self.find_icon(bar))
        self.wait_until_closed()
        self.assertTrue(self.player.is_running())
        # The first click opens the panel.
        panel = self.open_panel(icon)
        self.assert_beside(panel, "top", bar, icon, SCREEN)
        self.close_panel()

    def test_a_session_that_is_late_with_its_bar(self):
        self.start_player("--autostart")
        time.sleep(5)
        self.assertIsNone(self.panel())
        bar = XfcePanel(self.session)
        icon = centre_of(self.find_icon(bar))
        # Another start by the session asks for nothing.
        self.run_copy("--autostart")
        time.sleep(1)
        self.assertIsNone(self.panel())
        self.open_panel(icon)
        self.close_panel()
        self.assertEqual(self.player.errors, "")

    def test_a_session_without_a_bar(self):
        self.start_player("--autostart")
        started = time.monotonic()
        wait_for(self.panel, "the window", 2 * self.PATIENCE_SECONDS)
        self.assertGreater(time.monotonic() - started, self.PATIENCE_SECONDS - 2)
        self.assertLess(time.monotonic() - started, self.PATIENCE_SECONDS + 10)
        self.assertIn("no tray", self.player.errors)


class BarCrashTest(TrayCase):
    ROUNDS = 20
    LONGEST_SILENCE = 0.15
    LARGEST_GROWTH = 1024  # Kilobytes.
    desktop = {"tray": False}

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 60)

    def test_the_music_goes_on(self):
        bar = XfcePanel(self.session)
        player = self.start_player()
        recorder = self.start_music(centre_of(self.find_icon(bar)))
        _, _, title, text = self.item("ToolTip")
        self.assertEqual(title, "Mireval")
        self.assertIn(text, player.texts())
        self.close_panel()
        start = recorder.mark()
        memory = []
        for number in range(self.ROUNDS):
            bar.kill()
            bar.start()
            icon = self.find_icon(bar, f"one icon, in round {number}")
            # Not the embedded icon, which this tray would show as well.
            self.assertEqual(self.item("Id"), "mireval")
            memory.append(player.anonymous_kilobytes())
        self.assertIsNone(self.panel(), "no window without need")
        self.session.move_pointer(centre_of(icon))
        time.sleep(0.8)
        self.session.screenshot("tooltip")
        self.assertLessEqual(longest_silence(recorder.since(start)), self.LONGEST_SILENCE)
        self.assertLess(memory[-1] - memory[1], self.LARGEST_GROWTH, memory)

        start = recorder.mark()
        bar.freeze()
        self.run_copy()
        self.wait_for_panel()
        self.close_panel()
        time.sleep(1)
        bar.thaw()
        icon = centre_of(self.find_icon(bar))
        self.assertLessEqual(longest_silence(recorder.since(start)), self.LONGEST_SILENCE)
        panel = self.open_panel(icon)
        self.assert_beside(panel, "top", bar, icon, SCREEN)
        self.session.screenshot("opened")
        player.press("Quit")
        self.assertEqual(player.exit_status(), 0)
        self.assertEqual((player.output, player.errors), ("", ""))


class LostIconTest(TrayCase):
    """The bar, or the bus, goes while the panel is open."""

    LONGEST_SILENCE = 0.15
    SECONDS_UNTIL_CLOSED = 1.5
    desktop = {"tray": False}

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 90)

    def wait_until_closed_soon(self):
        wait_for(lambda: not self.panel(), "the panel to close by itself", self.SECONDS_UNTIL_CLOSED)

    def restart(self, bar):
        """With the panel open."""
        bar.kill()
        self.wait_until_closed_soon()
        self.session.press_key("Escape")
        bar.start()

    def reopen(self, bar, edge="top"):
        """Waits until the icon is back, and opens the panel with it."""
        icon = centre_of(self.find_icon(bar, "the icon, back on its bar"))
        time.sleep(0.5)
        self.assertIsNone(self.panel(), "no window without need")
        self.assert_beside(self.open_panel(icon), edge, bar, icon, SCREEN)

    def test_the_panel_closes_and_the_music_goes_on(self):
        bar = XfcePanel(self.session)
        player = self.start_player()
        recorder = self.start_music(centre_of(self.find_icon(bar)))
        start = recorder.mark()

        with self.subTest("bar"):
            self.restart(bar)
            self.reopen(bar)

        with self.subTest("bus"):
            self.session.stop_bus()
            self.wait_until_closed_soon()
            self.session.press_key("Escape")
            self.session.start_bus()
            bar.start()
            self.reopen(bar)
            self.close_panel()

        self.assertLessEqual(longest_silence(recorder.since(start)), self.LONGEST_SILENCE)
        self.assertTrue(player.is_running())
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_an_embedded_icon(self):
        bar = Tint2(self.session, 0x101010)
        player = self.start_player()
        recorder = self.start_music(centre_of(self.find_icon(bar)))
        start = recorder.mark()
        self.restart(bar)
        self.reopen(bar, "bottom")
        self.close_panel()
        self.assertLessEqual(longest_silence(recorder.since(start)), self.LONGEST_SILENCE)
        self.assertEqual((player.output, player.errors), ("", ""))

    def test_an_icon_that_an_older_bar_takes_back(self):
        older = Tint2(self.session, 0x101010)
        player = self.start_player()
        self.open_panel(centre_of(self.find_icon(older)))
        newer = XfcePanel(self.session)
        self.find_icon(newer, "the icon, on the bar that has come")
        time.sleep(self.SECONDS_UNTIL_CLOSED)
        self.assertIsNotNone(self.panel(), "the icon was never lost")
        self.close_panel()
        # Takes the newer bar along.
        self.session.stop_bus()
        newer.wait_for_end()
        icon = centre_of(self.find_icon(older, "the icon, on the older bar"))
        self.assert_beside(self.open_panel(icon), "bottom", older, icon, SCREEN)
        self.session.screenshot("older-bar")
        self.close_panel()
        self.run_copy()
        self.wait_for_panel()
        self.assertEqual(self.frame(), 0, "a window is for those who have no icon")
        self.restart(older)
        self.reopen(older, "bottom")
        self.close_panel()
        self.assertEqual((player.output, player.errors), ("", ""))


class BusyItemTest(TrayCase):
    """Programs call the icon's item far more often than bars do."""

    PRESSES = 10_000
    QUERIES_PER_SECOND = 1000
    LONGEST_ANSWER = 1
    LONGEST_SILENCE = 0.15
    LARGEST_GROWTH = 1024  # Kilobytes.
    desktop = {"tray": False}

    def setUp(self):
        super().setUp()
        self.resources = make_tones(self.session.folder / "resources", 90)
        self.bar = XfcePanel(self.session)
        self.start_player()
        self.icon = centre_of(self.find_icon(self.bar))

    def connect(self):
        client = BusConnection(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(client.close)
        return client

    def play(self):
        """Starts the music, with the panel closed; returns the recorder."""
        recorder = self.start_music(self.icon)
        self.close_panel()
        return recorder

    def test_many_presses(self):
        recorder = self.play()
        start = recorder.mark()
        place = self.item_place()
        presses, other = self.connect(), self.connect()
        flood = threading.Thread(
            target=lambda: [presses.send(*place, ITEM, "Activate", "ii", *self.icon) for _ in range(self.PRESSES)])
        answers = []
        flood.start()
        while flood.is_alive() or len(answers) < 20:
            asked = time.monotonic()
            other.send(*place, PROPERTIES, "Get", "ss", ITEM, "Status")
            self.assertEqual(other.receive_answers(1), 1)
            answers.append(time.monotonic() - asked)
        flood.join()
        self.assertEqual(presses.receive_answers(self.PRESSES), self.PRESSES)
        self.assertLess(max(answers), self.LONGEST_ANSWER, answers)
        # They are one press.
        self.wait_for_panel()
        time.sleep(1)
        self.assertIsNotNone(self.panel())
        self.session.click(self.icon)
        self.wait_until_closed()
        time.sleep(1)
        self.open_panel(self.icon)
        self.close_panel()
        self.assertLessEqual(longest_silence(recorder.since(start)), self.LONGEST_SILENCE)
        self.assertEqual(self.player.errors, "")

    def test_many_queries(self):
        place = self.item_place()
        client = self.connect()
        memory = []
        for _ in range(1 + 5):
            end = time.monotonic() + 1
            for part in range(100):
                for _ in range(self.QUERIES_PER_SECOND // 100):
                    client.send(*place, PROPERTIES, "GetAll", "s", ITEM)
                self.assertEqual(client.receive_answers(self.QUERIES_PER_SECOND // 100), self.QUERIES_PER_SECOND // 100)
                time.sleep(max(0.0, end - 0.01 * (99 - part) - time.monotonic()))
            memory.append(self.player.anonymous_kilobytes())
        # The first second makes the pixels of the icon.
        self.assertLess(memory[-1] - memory[0], self.LARGEST_GROWTH, memory)


class ThemelessTest(TrayCase):
    """Without an icon file for the theme the icon is shown from its pixels."""

    def test_without_files_for_the_theme(self):
        bar = XfcePanel(self.session)
        self.start_player()
        self.find_icon(bar)
        self.assertEqual(self.item("IconName"), "mireval")
        self.end_player()
        for folder in ("none", "empty"):
            with self.subTest(folder):
                self.resources = make_tones(self.session.folder / folder, 2, modes=())
                if folder == "empty":
                    (self.resources / "icons").mkdir()
                self.start_player()
                self.find_icon(bar)
                self.assertEqual(self.item("IconName"), "")
                self.session.screenshot(folder)
                self.end_player()
