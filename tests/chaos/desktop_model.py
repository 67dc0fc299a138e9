"""The desktop around the player, and what the player shows on it."""

from words import WORDS

MODES = ("focus", "tempo", "creative", "relaxation")
# In the order of the Tab key.
BUTTONS = (*MODES, "previous", "play", "next", "quit")
ROWS = (BUTTONS[:4], BUTTONS[4:7], BUTTONS[7:])
# Of the player, after it has lost its icon.
PATIENCE_SECONDS = 30
SLACK_SECONDS = 2
DARK = 1


class DesktopModel:
    def __init__(self):
        self._is_playing = False
        self.has_bus = True
        self.has_system_bus = True
        self.locale = "en_GB.UTF-8"
        # What the portal says about colours; None without a portal.
        self.preference = 0
        self.screens = 1
        self.scale = 1

        # The first one that is there has the icon.
        self.bar_kinds = ()
        self.bars = set()
        self.frozen_bar = None
        self.bar_on_second_screen = None
        # When the icon was lost, as long as the player waits for another place.
        self._icon_lost_at = None
        # How often the player has said that there is no tray: at least and at most.
        self.notices = [0, 0]

        # Whether the player can open files; windows take some.
        self.has_descriptors = True

        self.panel_is_open = False
        self.panel_is_framed = False
        # It opened by itself, and nobody has used it.
        self.panel_is_unasked = False
        # It closes when another window gets the keyboard.
        self.panel_is_exclusive = False
        # Whether the panel has the keyboard; None if that is not known.
        self.panel_has_keyboard = False
        self.focus = 0
        self.settings_are_open = False

    @property
    def words(self):
        return WORDS[self.locale]

    @property
    def is_dark(self):
        return self.has_bus and self.preference == DARK

    @property
    def is_playing(self):
        return self._is_playing

    @is_playing.setter
    def is_playing(self, value):
        if value != self._is_playing:
            self.panel_is_unasked = False
        self._is_playing = value

    # The icon.

    @property
    def icon_bar(self):
        return next((kind for kind in self.bar_kinds if kind in self.bars), None)

    @property
    def icons(self):
        """The bar of each icon that is seen. swaybar is on all screens."""
        if not self.has_tray:
            return []
        return [self.icon_bar] * (self.screens if self.icon_bar == "swaybar" else 1)

    @property
    def has_tray(self):
        return self.icon_bar is not None

    @property
    def icon_answers(self):
        return self.has_tray and self.icon_bar != self.frozen_bar

    def add_bar(self, kind, now):
        if self.may_lose_patience(now, SLACK_SECONDS):
            self.notices[1] += 1
        self.bars.add(kind)
        self._icon_lost_at = None
        if self.panel_is_open and self.panel_is_framed and self.panel_is_unasked:
            self.close_panel()

    def remove_bar(self, kind, now):
        """Another bar may get the icon, but only after a while."""
        had_icon = self.icon_bar == kind
        self.bars.remove(kind)
        if self.frozen_bar == kind:
            self.frozen_bar = None
        if self.bar_on_second_screen == kind:
            self.bar_on_second_screen = None
        if had_icon:
            self._icon_lost_at = None if self.has_tray else now
            if self.panel_is_open and not self.panel_is_framed:
                self.close_panel()

    def may_lose_patience(self, now, slack):
        return self._icon_lost_at is not None and now - self._icon_lost_at > PATIENCE_SECONDS - slack

    def must_have_lost_patience(self, now, slack):
        return self._icon_lost_at is not None and now - self._icon_lost_at > PATIENCE_SECONDS + slack

    def lose_patience(self):
        """The player says that there is no tray, and opens a window unless one is open."""
        self._icon_lost_at = None
        self.notices = [number + 1 for number in self.notices]
        if not self.panel_is_open:
            self._show_panel(framed=True)
            self.panel_is_unasked = self.panel_is_open

    # The windows.

    def toggle_panel(self):
        """By the icon."""
        if self.panel_is_open:
            self.close_panel()
        else:
            self._show_panel(framed=False)

    def show_panel(self):
        """By another start and the like."""
        if not self.panel_is_open:
            self._show_panel(framed=not self.has_tray)
        self.panel_is_unasked = False
        # Beside the settings, each desktop has its own way.
        self.panel_has_keyboard = True if self.panel_is_exclusive else None

    def _show_panel(self, framed):
        if not self.has_descriptors:
            return
        self.panel_is_open, self.panel_is_framed = True, framed
        self.panel_is_unasked = False
        self.panel_is_exclusive = not framed
        self.panel_has_keyboard = None if framed else True
        self.focus = 0

    def close_panel(self):
        self.panel_is_open = self.panel_is_exclusive = self.panel_has_keyboard = False

    def show_settings(self):
        if not self.has_descriptors and not self.settings_are_open:
            return
        self.settings_are_open = True
        if self.panel_is_open:
            self.panel_is_exclusive = False
            self.panel_has_keyboard = None if self.panel_is_framed else False

    def close_settings(self):
        self.settings_are_open = False
        if self.panel_is_open:
            self.panel_is_exclusive = not self.panel_is_framed
            self.panel_has_keyboard = None if self.panel_is_framed else True

    def use_panel(self, button):
        """A pointer or a key has pressed the button."""
        self.panel_is_unasked = False
        self.focus = BUTTONS.index(button)
