"""Reads what an application shows from the desktop's accessibility bus, as a screen reader does."""

from contextlib import closing, suppress
from functools import cached_property

from dbus import PROPERTIES_IFACE, DBusException
from dbus.bus import BusConnection

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
SCREEN_COORDINATES = 0
# GTK numbers the elements that it announces from one.
LAST_TOLD_ELEMENT = 30


class Element:
    """One element on the screen. Its name is read at once, the rest when it is asked for."""

    def __init__(self, accessibility, name, place):
        self._accessibility = accessibility
        self.name = name
        # On the accessibility bus: the application's name there, and the path.
        self.place = place

    @cached_property
    def role(self):
        """Empty when the element is gone."""
        return self._accessibility.call(*self.place, ACCESSIBLE, "GetRoleName") or ""

    @cached_property
    def extents(self):
        """Left, top, width and height in pixels of the screen."""
        extents = self._accessibility.call(*self.place, COMPONENT, "GetExtents", "u", SCREEN_COORDINATES)
        if extents is None:
            raise AssertionError(f"the element '{self.name}' is gone")
        return tuple(map(int, extents))

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2


class Accessibility:
    def __init__(self, session_bus):
        """The address of the session's message bus."""
        self._session_bus = session_bus
        self._bus = None

    def close(self):
        if self._bus:
            self._bus.close()

    def call(self, name, path, interface, method, signature="", *arguments):
        """The reply; None when the object is gone, as elements may be at any time."""
        try:
            return self._bus.call_blocking(name, path, interface, method, signature, arguments, timeout=5)
        except DBusException:
            return None

    def _connect(self):
        if self._bus is None:
            with closing(BusConnection(self._session_bus)) as session_bus, suppress(DBusException):
                self._bus = BusConnection(session_bus.call_blocking(
                    "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", "", (), timeout=5))
        return self._bus is not None

    def _name(self, name, path):
        return self.call(name, path, PROPERTIES_IFACE, "Get", "ss", ACCESSIBLE, "Name")

    def _describe(self, name, path):
        title = self._name(name, path)
        return None if title is None else Element(self, str(title), (name, path))

    def _roots_of(self, application):
        if not self._connect():
            return []
        roots = self._children_of("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        return [place for place in roots if self._name(*place) == application]

    def windows(self, application):
        """The windows of the running application of that name."""
        found = [self._describe(*place) for root in self._roots_of(application) for place in self._children_of(*root)]
        return [window for window in found if window is not None]

    def elements(self, application):
        """All named elements of the running application of that name, depth first."""
        found = []
        for name, path in self._roots_of(application):
            self._collect(name, path, found)
        return found

    def press(self, element):
        """Presses the element as a screen reader does; returns whether it can be pressed."""
        names = self.call(*element.place, ACTION, "GetActions")
        number = next((number for number, action in enumerate(names or []) if action[0] == "Press"), None)
        return number is not None and self.call(*element.place, ACTION, "DoAction", "i", number) == 1

    def listen(self):
        """Asks applications to announce what they open from now on. `opened_elements` needs that."""
        assert self._connect(), "no accessibility bus"
        self._bus.call_blocking("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry",
                                "RegisterEvent", "sass", ("object:state-changed", [], ""))

    def opened_elements(self, application):
        """All named elements in popups, such as the menus of a panel's plugins."""
        found = []
        for name, _ in self._roots_of(application):
            for number in range(1, LAST_TOLD_ELEMENT + 1):
                path = f"/org/a11y/atspi/accessible/{number}"
                if (element := self._describe(name, path)) is not None and element.role == "window":
                    self._collect(name, path, found)
        return found

    def _children_of(self, name, path):
        return self.call(name, path, ACCESSIBLE, "GetChildren") or []

    def _collect(self, name, path, found):
        for child_name, child_path in self._children_of(name, path):
            element = self._describe(child_name, child_path)
            if element is not None and element.name:
                found.append(element)
            self._collect(child_name, child_path, found)
