"""What the desktops of a walk have in common: buses, language, colours, and what is seen of the player."""

import time

from accessibility import Accessibility
from locale_service import LocaleService
from portal import SettingsPortal
from screen import centre_of
from session import wait_for

ACCESSIBILITY_BUS = ("dbus-daemon", "--config-file=/usr/share/defaults/at-spi2/accessibility.conf", "--nofork",
                     "--print-address={}")
REGISTRY = "/usr/libexec/at-spi2-registryd"
# Tells programs the address of the accessibility bus.
LAUNCHER = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus")


class PersistentAccessibility(Accessibility):
    """On a bus of its own: the player, which learns the address when it starts, keeps it when the session's bus ends.
    """

    def address(self):
        return self._session_bus

    def windows_with_elements(self, application):
        """Each window with its named elements."""
        result = []
        for window in self.windows(application):
            elements = []
            self._collect(*window.place, elements)
            result.append((window, elements))
        return result


class DesktopParts:
    """To be mixed into a `Session`."""

    # The kinds of bars. The first one that is there has the icon.
    bar_kinds = ()
    # For each kind, the rows of pixels that it covers.
    bar_rows = {}
    # Those that get the icon by D-Bus, and end with the bus.
    bus_bars = ()
    # Those that answer a right click with a menu.
    bars_with_menu = ()
    # Whether bars of several kinds can be there at the same time.
    bars_share = False
    # Whether keys can be pressed together, such as Shift and Tab.
    has_modifiers = True
    # Where a click closes the panel.
    free_place = (200, 400)
    scales = (1,)
    can_remove_screens = True

    def __init__(self, screenshots, **options):
        self._accessibility_address = None
        # By kind, also those that have ended.
        self.bars = {}
        super().__init__(screenshots, system_bus=True, **options)
        self.accessibility = PersistentAccessibility(self._accessibility_address)
        self.start_locale_service()
        self.start_portal()

    def _private_environment(self):
        # A frozen bar would hold up whoever asks for all that can be read. Qt does not know this variable.
        return {**super()._private_environment(), "NO_AT_BRIDGE": "1"}

    # Buses.

    def stop_bus(self):
        super().stop_bus()
        self.has_bus = False

    def start_bus(self):
        super().start_bus()
        self.has_bus = True
        if self._accessibility_address is None:
            self._start_accessibility_bus()

    def _start_accessibility_bus(self):
        address = self._accessibility_address = f"unix:path={self.folder}/accessibility-bus"
        self._start_announcing(*ACCESSIBILITY_BUS, f"--address={address}")
        self.start([REGISTRY], environment={"DBUS_SESSION_BUS_ADDRESS": address, "AT_SPI_BUS_ADDRESS": address})
        name, path, interface = LAUNCHER
        self.start_mock("--session", name, path, interface)
        wait_for(lambda: self.run("busctl", "--user", "call", name, path, "org.freedesktop.DBus.Mock", "AddMethod",
                                  "sssss", interface, "GetAddress", "", "s", f"ret = '{address}'").returncode == 0,
                 "the launcher of the accessibility bus")

    def start_locale_service(self):
        self.locale = LocaleService(self)

    def kill_system_bus(self):
        self._system_bus.kill()
        self._system_bus.wait(10)
        self.locale.end()

    def bring_system_bus_back(self):
        self.start_system_bus()
        self.start_locale_service()

    def start_portal(self, preference=0):
        self.portal = SettingsPortal(self, preference)

    # What is seen.

    def picture(self):
        return self._capture()

    def bars_with_icon(self, picture):
        """The kinds of bars on which the icon is seen; one twice if it shows two."""
        return [kind for icon in picture.icons() for kind, rows in self.bar_rows.items() if centre_of(icon)[1] in rows]

    def find_icon(self, kind):
        """The place of the icon on a bar of the kind, once that has ceased to move it."""
        def places():
            return [centre for icon in self.picture().icons() if (centre := centre_of(icon))[1] in self.bar_rows[kind]]

        def places_at_rest():
            first = places()
            time.sleep(0.1)
            return first if first == places() else None
        return wait_for(places_at_rest, "the icon")[0]

    def on_screen(self, place):
        """Where the place of an element of the panel is."""
        return place

    def paper_place(self, mode):
        """A place above the button of a mode, where the panel is plain."""
        left, top, width, _ = mode.extents
        return self.on_screen((left + width // 2, top - 8))
