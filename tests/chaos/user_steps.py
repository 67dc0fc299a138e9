"""What a user does: buttons, keys, the icon, other starts and the settings."""

import time

from desktop_model import BUTTONS, ROWS
from media import APPLICATION, PLAYER
from model import MODES
from steps import Steps

ITEM = ("org.mireval.Mireval", "/StatusNotifierItem", "org.kde.StatusNotifierItem")
MENU = ("org.mireval.Mireval", "/StatusNotifierMenu", "com.canonical.dbusmenu")
SERVICE = ("org.mireval.Mireval", "/org/mireval/Mireval", "org.freedesktop.Application")
SETTINGS_TITLE = " – Mireval$"
PANEL_TITLE = "^Mireval$"
# What the player answers without doing it.
IGNORED = (("Next",), ("Previous",), ("Stop",), ("Seek", "x", "20000000"), ("OpenUri", "s", "file:///dev/null"))
MISTAKES = ((["--mode=Focus"], "mireval: there is no mode 'Focus'"), (["--foo"], "mireval: unknown option '--foo'"),
            (["--mode"], "mireval: option '--mode' needs"), (["focus"], "mireval: unexpected argument 'focus'"))


class UserSteps(Steps):
    def possible(self):
        model = self.model
        steps = [(2, self.start_with_mode), (2, self.second_start), (1, self.start_in_vain), (2, self.start_settings)]
        if model.settings_are_open and not model.panel_is_exclusive:
            steps.append((5, self.close_settings))
        if model.panel_is_open:
            steps += self.possible_in_panel()
        if model.icon_answers:
            steps.append((6, self.icon))
            if not model.panel_is_open:
                steps.append((2, self.icon_menu))
        if model.has_bus:
            steps += self.possible_by_bus()
        return steps

    def possible_in_panel(self):
        model = self.model
        steps = [(6, self.mode_button), (4, self.transport)]
        if model.mode:
            steps += [(3, self.next), (3, self.previous)]
        if model.panel_has_keyboard or model.panel_is_framed:
            steps.append((5, self.keys))
            if self.desk.session.has_modifiers:
                steps.append((2, self.settings_key))
        if model.panel_is_exclusive:
            steps.append((2, self.click_elsewhere))
            if model.panel_has_keyboard:
                steps.append((2, self.escape))
        if model.panel_is_framed and model.has_tray:
            steps.append((4, self.close_window))
        return steps

    def possible_by_bus(self):
        steps = [(1, self.activate), (1, self.activate_action)]
        if self.model.has_tray:
            steps += [(1, self.item), (1, self.menu_entry)]
        if self.model.loaded:
            steps += [(4, self.media_key), (1, self.ignored_media_command), (2, self.raise_panel)]
        return steps

    # In the panel.

    def press(self, button):
        """By the pointer."""
        if self.model.settings_are_open:
            # They may cover it.
            self.focus_framed_panel()
        self.desk.press(self.text_of(button))
        self.model.use_panel(button)
        self.follow_press(button)

    def text_of(self, button):
        words = self.model.words
        if button in MODES:
            return words.mode_names[MODES.index(button)]
        if button == "play":
            return words.pause if self.model.is_playing else words.play
        return {"previous": words.previous, "next": words.next}[button]

    def follow_press(self, button):
        """Tells the model."""
        if button in MODES:
            self.model.press_mode(button)
        elif button == "play":
            if self.model.mode:
                self.model.press_transport()
            else:
                self.model.select("focus")
        elif self.model.mode:
            self.model.step(1 if button == "next" else -1)

    def mode_button(self):
        mode = self.random.choice(MODES)
        self.press(mode)
        return mode

    def next(self):
        self.press("next")

    def previous(self):
        self.press("previous")

    def transport(self):
        self.press("play")

    def keys(self):
        """Moves the focus to some button and presses that."""
        target = self.random.randrange(len(BUTTONS) - 1)
        ways = self.ways(self.model.focus, target, self.desk.session.has_modifiers)
        keys = [*self.random.choice(ways), self.random.choice(("space", "Return", "KP_Enter"))]
        self.focus_framed_panel()
        self.desk.session.press_keys(*keys)
        self.model.use_panel(BUTTONS[target])
        self.follow_press(BUTTONS[target])
        return f"{BUTTONS[target]} by {' '.join(keys)}"

    @staticmethod
    def ways(here, target, has_modifiers):
        """The keys of each way that leads from one button to another."""
        count = len(BUTTONS)
        found = [["Tab"] * ((target - here) % count)]
        if has_modifiers:
            found.append(["shift+Tab"] * ((here - target) % count))
        row = next(row for row in ROWS if BUTTONS[here] in row)
        if BUTTONS[target] in row:
            along = (target - here) % len(row)
            found += [[key] * along for key in ("Right", "Down")]
            found += [[key] * ((len(row) - along) % len(row)) for key in ("Left", "Up")]
            found += [["Home"]] * (BUTTONS[target] == row[0]) + [["End"]] * (BUTTONS[target] == row[-1])
        return found

    def focus_framed_panel(self):
        if self.model.panel_is_framed:
            self.desk.session.focus_window(PANEL_TITLE)
            self.model.panel_has_keyboard = True

    def escape(self):
        self.desk.session.press_key("Escape")
        self.model.close_panel()

    def close_window(self):
        self.desk.session.close_window(PANEL_TITLE)
        self.model.close_panel()

    def click_elsewhere(self):
        self.desk.wait_until_clicks_count()
        self.desk.session.click(self.desk.session.free_place)
        self.model.close_panel()

    # The icon.

    def icon(self):
        button = self.random.choice(("left", "left", "middle"))
        self.desk.click_icon(self.model.icon_bar, button)
        self.model.toggle_panel()
        return button

    def icon_menu(self):
        """A right click opens the bar's menu or, where the bar has none, the panel."""
        self.desk.click_icon(self.model.icon_bar, "right")
        if self.model.icon_bar in self.desk.session.bars_with_menu:
            time.sleep(0.5)
            self.desk.session.press_keys("Down", "Return")
        self.model.toggle_panel()
        return self.model.icon_bar

    def item(self):
        method = self.random.choice(("Activate", "SecondaryActivate", "ContextMenu"))
        self.point_at_icon()
        self.call(ITEM, method, "ii", "0", "0")
        self.model.toggle_panel()
        return method

    def menu_entry(self):
        self.point_at_icon()
        self.call(MENU, "Event", "isvu", "1", "clicked", "i", "0", "0")
        self.model.toggle_panel()

    def point_at_icon(self):
        """Where the player looks for the pointer to place the panel."""
        self.desk.session.move_pointer(self.desk.session.find_icon(self.model.icon_bar))
        self.desk.wait_until_clicks_count()

    def call(self, place, method, *arguments):
        result = self.desk.session.run("busctl", "--user", "--timeout=10", "--", "call", *place, method, *arguments)
        if result.returncode:
            raise AssertionError(f"{method}: {result.stderr}")

    # Other starts.

    def start_with_mode(self):
        mode = self.random.choice(MODES)
        self.desk.start_again(f"--mode={mode}")
        self.model.select(mode)
        return mode

    def second_start(self):
        self.desk.start_again()
        self.model.show_panel()

    def start_in_vain(self):
        """One that asks for nothing, or for what there is not."""
        options, error = self.random.choice(((["--autostart"], ""), *MISTAKES))
        self.desk.start_again(*options, status=2 if error else 0, errors=error)
        return " ".join(options)

    def activate(self):
        """As launchers do."""
        self.call(SERVICE, "Activate", "a{sv}", "0")
        self.model.show_panel()

    def activate_action(self):
        action = self.random.choice((*MODES, "Settings"))
        self.call(SERVICE, "ActivateAction", "sava{sv}", action, "0", "0")
        if action == "Settings":
            self.model.show_settings()
        else:
            self.model.select(action)
        return action

    # The settings.

    def start_settings(self):
        self.desk.start_again("--settings")
        self.model.show_settings()

    def settings_key(self):
        self.focus_framed_panel()
        self.desk.session.press_key("ctrl+comma")
        self.model.panel_is_unasked = False
        self.model.show_settings()

    def close_settings(self):
        key = self.random.choice(("Escape", "ctrl+w" if self.desk.session.has_modifiers else "Escape", None))
        if key:
            self.desk.session.focus_window(SETTINGS_TITLE)
            self.desk.session.press_key(key)
        else:
            self.desk.session.close_window(SETTINGS_TITLE)
        self.model.close_settings()
        return key or "by the desktop"

    # Media controls.

    def media_key(self):
        command = self.random.choice(("Play", "Pause", "PlayPause"))
        self.desk.controls.command(command)
        self.model.media_command(command)
        return command

    def ignored_media_command(self):
        method, *arguments = self.random.choice(IGNORED)
        self.desk.controls.call(PLAYER, method, *arguments)
        return method

    def raise_panel(self):
        self.desk.controls.call(APPLICATION, "Raise")
        self.model.show_panel()
