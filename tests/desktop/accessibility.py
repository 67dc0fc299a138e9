"""Reads what an application shows from the desktop's accessibility bus, as a screen reader does."""

from contextlib import closing, suppress
from functools import cached_property

from dbus import PROPERTIES_IFACE, DBusException
from dbus.bus import BusConnection

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
VALUE = "org.a11y.atspi.Value"
COMPONENT = "org.a11y.atspi.Component"
SCREEN_COORDINATES = 0
# Numbers of states.
CHECKED, FOCUSABLE = 4, 11
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
    def states(self):
        """The numbers of the states that it is in now."""
        low, high = self._accessibility.call(*self.place, ACCESSIBLE, "GetState") or (0, 0)
        return {number for number in range(64) if (low | high << 32) >> number & 1}

    @property
    def actions(self):
        return [str(action[0]) for action in self._accessibility.call(*self.place, ACTION, "GetActions") or []]

    @property
    def description(self):
        return self.get(ACCESSIBLE, "Description")

    def get(self, interface, name):
        """A property's value now; None when there is none."""
        return self._accessibility.call(*self.place, PROPERTIES_IFACE, "Get", "ss", interface, name)

    def children(self):
        return self._accessibility.children(self)

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

    def address(self):
        """Of the accessibility bus. Asking for it starts that bus."""
        with closing(BusConnection(self._session_bus)) as session_bus:
            return session_bus.call_blocking("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", "", (),
                                             timeout=5)

    def _connect(self):
        if self._bus is None:
            with suppress(DBusException):
                self._bus = BusConnection(self.address())
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
        actions = element.actions
        return "Press" in actions and self.call(*element.place, ACTION, "DoAction", "i", actions.index("Press")) == 1

    def listen(self, *events):
        """Asks applications to announce such events from now on. `opened_elements` needs the usual ones."""
        assert self._connect(), "no accessibility bus"
        for event in events or ["object:state-changed"]:
            self._bus.call_blocking("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry",
                                    "RegisterEvent", "sass", (event, [], ""))

    def opened_elements(self, application):
        """All named elements in popups, such as the menus of a panel's plugins."""
        found = []
        for name, _ in self._roots_of(application):
            for number in range(1, LAST_TOLD_ELEMENT + 1):
                path = f"/org/a11y/atspi/accessible/{number}"
                if (element := self._describe(name, path)) is not None and element.role == "window":
                    self._collect(name, path, found)
        return found

    def children(self, element):
        return [child for place in self._children_of(*element.place) if (child := self._describe(*place)) is not None]

    def _children_of(self, name, path):
        return self.call(name, path, ACCESSIBLE, "GetChildren") or []

    def _collect(self, name, path, found):
        for child_name, child_path in self._children_of(name, path):
            element = self._describe(child_name, child_path)
            if element is not None and element.name:
                found.append(element)
            self._collect(child_name, child_path, found)
