"""What a running player holds: memory, descriptors, threads, and objects at the servers that it talks to."""

from contextlib import suppress
from pathlib import Path

import Xlib.display
import Xlib.ext.res
from dbus import DBusException
from dbus.bus import BusConnection

from trend import Figure

BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus")


class Holdings:
    """Its figures are taken from outside, without asking the player."""

    FIGURES = {
        "memory": Figure("own memory (RssAnon), KB", is_amount=True),
        "descriptors": Figure("open file descriptors"),
        "threads": Figure("threads"),
        "streams": Figure("streams at the sound server"),
        "clients": Figure("connections to the sound server"),
        "resources": Figure("X resources"),
        "connections": Figure("connections to message buses"),
        "names": Figure("names on message buses"),
        "rules": Figure("match rules on message buses"),
    }

    def __init__(self, session, player):
        self._session = session
        self._player = player
        self._display = Xlib.display.Display(session.environment["DISPLAY"])
        self._buses = [BusConnection(address) for address in (session.environment["DBUS_SESSION_BUS_ADDRESS"],
                                                              session.accessibility.address())]

    def close(self):
        self._display.close()
        for bus in self._buses:
            bus.close()

    def take(self):
        """The figures now, by the keys of FIGURES."""
        process = Path("/proc", str(self._player.process.pid))
        return {
            "memory": self._player.anonymous_kilobytes(),
            "descriptors": len(list((process / "fd").iterdir())),
            "threads": len(list((process / "task").iterdir())),
            "streams": self._at_the_sound_server("sink-inputs"),
            "clients": self._at_the_sound_server("clients"),
            "resources": self._at_the_x_server(),
            **self._on_buses(),
        }

    def _at_the_sound_server(self, kind):
        return self._session.run("pactl", "list", kind).stdout.count(
            f'application.process.id = "{self._player.process.pid}"')

    def _at_the_x_server(self):
        clients = self._display.res_query_client_ids([{"client": 0, "mask": Xlib.ext.res.LocalClientPIDMask}]).ids
        return sum(kind.count for client in clients if list(client.value) == [self._player.process.pid]
                   for kind in self._display.res_query_client_resources(client.spec.client).types)

    def _on_buses(self):
        connections = names = rules = 0
        for bus in self._buses:
            for name in bus.list_names():
                # A connection may have gone since.
                with suppress(DBusException):
                    if name.startswith(":") and self._owner(bus, name) == self._player.process.pid:
                        statistics = bus.call_blocking(*BUS, "org.freedesktop.DBus.Debug.Stats", "GetConnectionStats",
                                                       "s", (name,))
                        connections += 1
                        names += int(statistics["BusNames"])
                        rules += int(statistics["MatchRules"])
        return {"connections": connections, "names": names, "rules": rules}

    @staticmethod
    def _owner(bus, name):
        return bus.call_blocking(*BUS, "org.freedesktop.DBus", "GetConnectionUnixProcessID", "s", (name,))
