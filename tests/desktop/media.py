"""Media players on the message bus, seen through tools of the desktop."""

import collections
import json
import subprocess
import threading
import time
import xml.etree.ElementTree

from session import wait_for

NAME = "org.mpris.MediaPlayer2.mireval"
PATH = "/org/mpris/MediaPlayer2"
APPLICATION = "org.mpris.MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"
PROPERTIES = "org.freedesktop.DBus.Properties"


def player_names(session):
    """The names of all media players on the bus."""
    reply = session.run("busctl", "--user", "--json=short", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                        "org.freedesktop.DBus", "ListNames")
    return sorted(name for name in json.loads(reply.stdout)["data"][0] if name.startswith(APPLICATION + "."))


class MediaPlayer:
    def __init__(self, session, name=NAME):
        self._session = session
        self.name = name

    def _busctl(self, *arguments):
        return self._session.run("busctl", "--user", "--json=short", "--timeout=10", "--", *arguments)

    def attempt(self, interface, method, *arguments):
        """Calls a method; returns the error's text, empty if there was none."""
        result = self._busctl("call", self.name, PATH, interface, method, *arguments)
        return result.stderr if result.returncode else ""

    def call(self, interface, method, *arguments):
        """Calls a method; returns the reply's values, variants as {"type", "data"}."""
        result = self._busctl("call", self.name, PATH, interface, method, *arguments)
        if result.returncode:
            raise AssertionError(f"{method}: {result.stderr}")
        return json.loads(result.stdout)["data"] if result.stdout.strip() else []

    def command(self, method):
        self.call(PLAYER, method)

    def attempt_to_set(self, interface, name, signature, value):
        """Writes a property; returns the error's text, empty if there was none."""
        result = self._busctl("set-property", self.name, PATH, interface, name, signature, value)
        return result.stderr if result.returncode else ""

    def get(self, name, interface=PLAYER):
        """A property as {"type", "data"}."""
        return self.call(PROPERTIES, "Get", "ss", interface, name)[0]

    def get_all(self, interface=PLAYER):
        """All properties by name, each as {"type", "data"}."""
        return self.call(PROPERTIES, "GetAll", "s", interface)[0]

    @property
    def status(self):
        return self.get("PlaybackStatus")["data"]

    @property
    def position_seconds(self):
        return self.get("Position")["data"] / 1e6

    @property
    def metadata(self):
        """The fields by name, without their types."""
        return {name: value["data"] for name, value in self.get("Metadata")["data"].items()}

    @property
    def title(self):
        return self.metadata["xesam:title"]

    def owner(self):
        """The name of the player's connection."""
        reply = self._busctl("call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                             "GetNameOwner", "s", self.name)
        return json.loads(reply.stdout)["data"][0]

    def introspect(self):
        """The interfaces by name, each with {"methods", "properties", "signals"} by name. Arguments are
        "type name, type name"."""
        def arguments(member):
            return ", ".join(f"{argument.get('type')} {argument.get('name')}" for argument in member.findall("arg"))
        xml_text = self._session.run("busctl", "--user", "introspect", "--xml-interface", self.name, PATH).stdout
        return {node.get("name"): {
            "methods": {method.get("name"): arguments(method) for method in node.findall("method")},
            "properties": {entry.get("name"): (entry.get("type"), entry.get("access"))
                           for entry in node.findall("property")},
            "signals": {signal.get("name"): arguments(signal) for signal in node.findall("signal")},
        } for node in xml.etree.ElementTree.fromstring(xml_text).findall("interface")}

    def wait_for_status(self, status, seconds=5):
        wait_for(lambda: self.status == status, f"the status {status}", seconds)


def wait_for_player(session, seconds=15):
    """The one media player, as soon as it is on the bus."""
    name, = wait_for(lambda: player_names(session), "a media player on the bus", seconds)
    return MediaPlayer(session, name)


class Playerctl:
    """The common command-line tool for media players."""

    def __init__(self, session):
        self._session = session

    def __call__(self, *arguments):
        """Runs a command and returns what it says; it must succeed."""
        result = self.attempt(*arguments)
        if result.returncode:
            raise AssertionError(f"playerctl {arguments}: {result.stderr}")
        return result.stdout.strip()

    def attempt(self, *arguments):
        return self._session.run("playerctl", "--player=mireval", *arguments)

    def follow(self, template):
        """Starts playerctl, which writes a line for each change."""
        return Lines(self._session, "playerctl", "--player=mireval", "--follow", "metadata", "--format", template)


class Lines:
    """A program whose lines are collected while it runs."""

    def __init__(self, session, *command):
        self._process = session.start([*command], stdout=subprocess.PIPE)
        self._lines = []
        self._started = time.monotonic()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self._process.stdout:
            self._lines.append((time.monotonic() - self._started, line.decode().rstrip("\n")))

    def timed(self):
        """The lines so far, each with the seconds since the program's start."""
        return list(self._lines)

    def texts(self):
        return [text for _, text in self._lines]


class SignalMonitor:
    """Counts the signals that a media player sends."""

    def __init__(self, session, player):
        self._owner = player.owner()
        # A line for each message: kind, time, serial, sender, receiver, path, interface, member.
        self._lines = Lines(session, "dbus-monitor", "--session", "--profile", f"type='signal',path='{PATH}'")
        # dbus-monitor is ready when it has lost its own name on the bus.
        wait_for(lambda: any("NameLost" in line for line in self._lines.texts()), "dbus-monitor")

    def members(self):
        """How often each signal has come so far."""
        fields = [line.split("\t") for line in self._lines.texts()]
        return collections.Counter(field[7] for field in fields
                                   if field[0] == "sig" and field[3] == self._owner and field[5] == PATH)
