"""Reads what an application shows from the desktop's accessibility bus, as a screen reader does."""

import json
import subprocess
from functools import cached_property

from bus_connection import BusConnection

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
SCREEN_COORDINATES = "0"
# Elements that an application tells of are numbered from one.
LAST_TOLD_ELEMENT = 30


class Element:
    """One element on the screen. What it is asked for later than its name may be that of a later moment."""

    def __init__(self, accessibility, name, place):
        self._accessibility = accessibility
        self.name = name
        # On the accessibility bus: the application's name there, and the path.
        self.place = place

    @cached_property
    def role(self):
        """Empty when the element is gone."""
        role = self._accessibility.call(*self.place, ACCESSIBLE, "GetRoleName")
        return role[0] if role else ""

    @cached_property
    def extents(self):
        """Left, top, width and height in pixels of the screen."""
        extents = self._accessibility.call(*self.place, COMPONENT, "GetExtents", "u", SCREEN_COORDINATES)
        if extents is None:
            raise AssertionError(f"the element '{self.name}' is gone")
        return extents[0]

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2


class Accessibility:
    def __init__(self, environment):
        self._environment = environment
        self._address = None
        self._listener = None

    def close(self):
        if self._listener:
            self._listener.close()

    def _busctl(self, *arguments):
        """The reply's values; None when the object is gone, as elements may be at any time."""
        result = subprocess.run(
            ["busctl", "--json=short", "--timeout=5", *arguments],
            env=self._environment, capture_output=True, text=True, timeout=10)
        return json.loads(result.stdout)["data"] if result.returncode == 0 else None

    def call(self, name, path, interface, method, *arguments):
        return self._busctl(f"--address={self._address}", "call", name, path, interface, method, *arguments)

    def _connect(self):
        if self._address is None:
            reply = self._busctl("--user", "call", "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
            self._address = reply[0] if reply else None
        return self._address is not None

    def _describe(self, name, path):
        title = self._busctl(f"--address={self._address}", "get-property", name, path, ACCESSIBLE, "Name")
        return None if title is None else Element(self, title, (name, path))

    def _roots_of(self, application):
        if not self._connect():
            return []
        roots = self._children_of("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        return [(name, path) for name, path in roots
                if self._busctl(f"--address={self._address}", "get-property", name, path, ACCESSIBLE,
                                "Name") == application]

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
        """Does what a click would, as a screen reader or a voice does; returns whether the element could."""
        names = self.call(*element.place, ACTION, "GetActions")
        number = next((number for number, action in enumerate((names or [[]])[0]) if action[0] == "Press"), None)
        return number is not None and self.call(*element.place, ACTION, "DoAction", "i", str(number)) == [True]

    def listen(self):
        """Lets applications tell of what they open from now on, for `opened_elements`."""
        assert self._connect(), "no accessibility bus"
        self._listener = BusConnection(self._address)
        self._listener.send("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry",
                            "RegisterEvent", "sass", "object:state-changed", [], "")
        assert self._listener.receive_answers(1) == 1, "no events from the accessibility bus"

    def opened_elements(self, application):
        """All named elements of what has opened outside of the application's windows, as the menus of a panel's
        plugins do."""
        found = []
        for name, _ in self._roots_of(application):
            for number in range(1, LAST_TOLD_ELEMENT + 1):
                path = f"/org/a11y/atspi/accessible/{number}"
                if (element := self._describe(name, path)) is not None and element.role == "window":
                    self._collect(name, path, found)
        return found

    def _children_of(self, name, path):
        children = self.call(name, path, ACCESSIBLE, "GetChildren")
        return (children or [[]])[0]

    def _collect(self, name, path, found):
        for child_name, child_path in self._children_of(name, path):
            element = self._describe(child_name, child_path)
            if element is not None and element.name:
                found.append(element)
            self._collect(child_name, child_path, found)
