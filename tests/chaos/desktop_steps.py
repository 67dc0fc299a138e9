"""What happens to the desktop around the player: its bars, buses, screens, language and colours."""

import time

from portal import DARK, LIGHT, NO_PREFERENCE
from steps import Steps
from words import WORDS


class DesktopSteps(Steps):
    def possible(self):
        model = self.model
        steps = self.possible_for_bars()
        if not model.has_bus:
            steps.append((8, self.start_bus))
        elif not self.would_go_to_frozen_bar():
            steps.append((2, self.kill_bus))
        if model.has_bus:
            steps.append((2, self.change_colours) if model.preference is not None else (2, self.start_portal))
            if model.preference is not None:
                steps.append((1, self.kill_portal))
        if model.has_system_bus:
            steps += [(2, self.change_language), (1, self.kill_system_bus)]
        else:
            steps.append((6, self.start_system_bus))
        return steps + self.possible_for_screens()

    def possible_for_bars(self):
        model = self.model
        steps = [(2, self.kill_bar)] if model.bars and not self.would_go_to_frozen_bar() else []
        if model.frozen_bar:
            steps.append((8, self.thaw_bar))
        elif model.bars:
            steps.append((2, self.freeze_bar))
        if self.startable_bars():
            steps.append((2 if model.has_tray else 8, self.start_bar))
        return steps

    def possible_for_screens(self):
        # A frozen bar cannot follow. tint2 starts anew, so that it loses the icon for a moment, and to another tray
        # for ever.
        if self.model.frozen_bar or ("tint2" in self.model.bars
                                     and (self.model.panel_is_open or len(self.model.bars) > 1)):
            return []
        steps = [(1, self.change_scale)] if len(self.desk.session.scales) > 1 else []
        if self.model.screens == 1:
            steps.append((1, self.add_screen))
        elif self.desk.session.can_remove_screens:
            steps.append((2, self.remove_screen))
        return steps

    def would_go_to_frozen_bar(self):
        """The icon, if its bar ended. Nobody can tell what the frozen one shows then."""
        return self.model.frozen_bar not in (None, self.model.icon_bar)

    # Bars.

    def startable_bars(self):
        """A bar that takes the icon of another comes after that."""
        session, bars = self.desk.session, self.model.bars
        return [kind for place, kind in enumerate(session.bar_kinds)
                if kind not in bars and not bars & set(session.bar_kinds[:place])
                and (session.bars_share or not bars)
                and (self.model.has_bus or kind not in session.bus_bars)]

    def start_bar(self):
        kind = self.random.choice(self.startable_bars())
        if kind == "waybar" and self.model.screens > 1 and self.random.choice((True, False)):
            self.desk.session.start_bar(kind, on_second_screen=True)
            self.model.bar_on_second_screen = kind
        else:
            self.desk.session.start_bar(kind)
        self.model.add_bar(kind, time.monotonic())
        return f"{kind} elsewhere" if self.model.bar_on_second_screen else kind

    def kill_bar(self):
        kind = self.random.choice(sorted(self.model.bars))
        self.desk.session.bars[kind].end()
        self.model.remove_bar(kind, time.monotonic())
        return kind

    def freeze_bar(self):
        kind = self.random.choice(sorted(self.model.bars))
        self.desk.session.bars[kind].freeze()
        self.model.frozen_bar = kind
        return kind

    def thaw_bar(self):
        self.desk.session.bars[self.model.frozen_bar].thaw()
        self.model.frozen_bar = None

    # Buses.

    def kill_bus(self):
        self.desk.session.stop_bus()
        self.desk.session.portal.end()
        self.model.has_bus, self.model.preference = False, None
        for kind in self.model.bars & set(self.desk.session.bus_bars):
            bar = self.desk.session.bars[kind]
            if kind == "xfce" and kind != self.model.frozen_bar:
                bar.wait_for_end()
            else:
                bar.end()
            self.model.remove_bar(kind, time.monotonic())
        if self.desk.session.server.parts:
            # WirePlumber ends with it. What is left may still play, or not.
            self.model.lose_server()

    def start_bus(self):
        self.desk.session.start_bus()
        self.model.has_bus = True

    def kill_system_bus(self):
        self.desk.session.kill_system_bus()
        self.model.has_system_bus = False

    def start_system_bus(self):
        self.desk.session.bring_system_bus_back()
        self.model.has_system_bus = True

    # Language and colours.

    def change_language(self):
        locale = self.random.choice([locale for locale in WORDS if locale != self.model.locale])
        self.desk.session.locale.set_locale([f"LANG={locale}"])
        self.model.locale = locale
        return locale

    def change_colours(self):
        self.model.preference = self.random.choice((DARK, DARK, LIGHT, NO_PREFERENCE))
        self.desk.session.portal.set_color_scheme(self.model.preference)
        return "dark" if self.model.is_dark else "light"

    def start_portal(self):
        preference = self.random.choice((DARK, LIGHT, NO_PREFERENCE))
        self.desk.session.start_portal(preference)
        self.model.preference = preference
        return "dark" if self.model.is_dark else "light"

    def kill_portal(self):
        self.desk.session.portal.end()
        self.model.preference = None

    # Screens.

    def add_screen(self):
        self.desk.session.add_screen()
        self.model.screens = 2

    def remove_screen(self):
        """With the bar that is on it."""
        self.desk.session.remove_screen()
        self.model.screens = 1
        if kind := self.model.bar_on_second_screen:
            self.desk.session.bars[kind].end()
            self.model.remove_bar(kind, time.monotonic())
            return f"with {kind}"
        return None

    def change_scale(self):
        scales = [scale for scale in self.desk.session.scales if scale != self.model.scale]
        self.model.scale = self.random.choice(scales)
        self.desk.session.set_scale(self.model.scale)
        return self.model.scale
