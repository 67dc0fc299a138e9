"""A private desktop: its own home, message bus, screen, tray and sound server. Ending it ends all of it."""

import ctypes
import os
import select
import signal
import subprocess
import sys
import tempfile
import time
from contextlib import closing
from pathlib import Path

from dbus.bus import BusConnection

from accessibility import Accessibility
from screen import Screenshot

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
LIBC = ctypes.CDLL(None, use_errno=True)


def wait_for(condition, what, seconds=15):
    """Waits for the condition's first true value and returns it; fails after so many seconds. What is waited for may be
    a function of no arguments, which is called then.
    """
    limit = time.monotonic() + seconds
    while True:
        if value := condition():
            return value
        if time.monotonic() > limit:
            raise AssertionError(f"waited {seconds} s in vain for {what() if callable(what) else what}")
        time.sleep(0.05)


def _die_with_parent():
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def children_of(pid):
    """The process ids of a process's running children."""
    children = []
    for status in Path("/proc").glob("[0-9]*/stat"):
        try:
            fields = status.read_text(errors="replace").rpartition(")")[2].split()
        except OSError:
            continue
        if int(fields[1]) == pid and fields[0] != "Z":
            children.append(int(status.parent.name))
    return children


# Whoever connects may do everything; nothing is started on demand.
SYSTEM_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>{address}</listen>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
"""
# A panel of three plugins.
PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="mode" type="uint" value="0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{thickness}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">{plugins}
  </property>
</channel>
"""
# A tray between two springs. The second is off, so that the tray is at the bar's end.
TRAY = """
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray">
      <property name="icon-size" type="int" value="{icon}"/>
      <property name="square-icons" type="bool" value="true"/>
    </property>
    <property name="plugin-3" type="string" value="separator">
      <property name="expand" type="bool" value="false"/>
      <property name="style" type="uint" value="0"/>
    </property>"""
# A tray, and a menu of the media players on the bus.
TRAY_AND_PLAYERS = """
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
    </property>
    <property name="plugin-2" type="string" value="systray"/>
    <property name="plugin-3" type="string" value="pulseaudio">
      <property name="enable-mpris" type="bool" value="true"/>
    </property>"""
BUTTONS = {"left": 1, "middle": 2, "right": 3}
# The middle of the button that opens the menu.
PLAYERS_MENU = (1267, 13)


class Session:
    def __init__(self, screenshots, *, screen=True, tray=True, sound=True, players_in_panel=False, system_bus=False,
                 screen_size="1280x800"):
        # Services that the bus starts become our children, so that `end` finds them.
        LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1)
        self._folder = tempfile.TemporaryDirectory(prefix="mireval-desktop-", ignore_cleanup_errors=True)
        self.folder = Path(self._folder.name)
        self._screen_size = screen_size
        self._screenshots = Path(screenshots)
        self._screenshots.mkdir(parents=True, exist_ok=True)
        self.environment = self._private_environment()
        self.accessibility = Accessibility(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._processes = []
        try:
            self.start_bus()
            if system_bus:
                self.start_system_bus()
            if screen:
                self._start_screen()
            if sound:
                self.start_sound_server()
            self.configure_panel(26, TRAY_AND_PLAYERS if players_in_panel else TRAY.format(icon=22))
            if tray:
                self.start_tray()
        except BaseException:
            self.end()
            raise

    def _private_environment(self):
        environment = {name: os.environ[name] for name in ("PATH", "LANG", "LD_LIBRARY_PATH", "ASAN_OPTIONS",
                                                           "UBSAN_OPTIONS", "TSAN_OPTIONS") if name in os.environ}
        for name, folder in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"), ("XDG_CACHE_HOME", "cache"),
                             ("XDG_DATA_HOME", "data"), ("XDG_STATE_HOME", "state"), ("XDG_RUNTIME_DIR", "run"),
                             ("TMPDIR", "tmp")):
            path = self.folder / folder
            path.mkdir(mode=0o700)
            environment[name] = str(path)
        environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.folder}/bus"
        # Set even without a system bus, so that nobody uses the machine's own.
        environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.folder}/system-bus"
        client = self.folder / "pulse-client.conf"
        client.write_text("autospawn = no\n")
        environment["PULSE_CLIENTCONFIG"] = str(client)
        environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        return environment

    def start(self, command, *, environment=None, **options):
        for stream in ("stdin", "stdout", "stderr"):
            options.setdefault(stream, subprocess.DEVNULL)
        process = subprocess.Popen(command, env={**self.environment, **(environment or {})},
                                   preexec_fn=_die_with_parent, **options)
        self._processes.append(process)
        return process

    def run(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=20)

    def _start_announcing(self, *command):
        """Starts a server that writes its address to the descriptor "{}"; returns the process and the address."""
        reader, writer = os.pipe()
        try:
            process = self.start([part.format(writer) for part in command], pass_fds=[writer])
            os.close(writer)
            text = ""
            # Read the whole line: a server that cannot write all of it may end.
            while not text.endswith("\n") and select.select([reader], [], [], 30)[0]:
                part = os.read(reader, 4096).decode()
                if not part:
                    break
                text += part
            text = text.strip()
        finally:
            os.close(reader)
        if not text:
            raise AssertionError(f"{command[0]} did not start")
        return process, text

    def start_bus(self):
        """Starts the message bus, always at the same address."""
        address = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        self._bus, _ = self._start_announcing("dbus-daemon", "--session", "--nofork", f"--address={address}",
                                              "--print-address={}")

    def stop_bus(self):
        """Kills the message bus. Programs that need one, such as the desktop's panel, end with it."""
        self._bus.kill()
        self._bus.wait(10)

    def pause_bus(self):
        """From now on the bus accepts connections and messages, and answers none."""
        self._bus.send_signal(signal.SIGSTOP)

    def resume_bus(self):
        self._bus.send_signal(signal.SIGCONT)

    def start_system_bus(self):
        """Starts the system's message bus, always at the same address."""
        configuration = self.folder / "system-bus.conf"
        configuration.write_text(
            SYSTEM_BUS_CONFIGURATION.format(address=self.environment["DBUS_SYSTEM_BUS_ADDRESS"]), encoding="utf-8")
        self._system_bus, _ = self._start_announcing("dbus-daemon", f"--config-file={configuration}", "--nofork",
                                                     "--print-address={}")

    def start_mock(self, *arguments):
        """Starts python3-dbusmock with these arguments."""
        return self.start([sys.executable, "-B", "-m", "dbusmock", *arguments])

    def configure_panel(self, thickness, plugins):
        """Configures xfce4-panel: its thickness in pixels and the settings of three plugins."""
        folder = Path(self.environment["XDG_CONFIG_HOME"], "xfce4/xfconf/xfce-perchannel-xml")
        folder.mkdir(parents=True, exist_ok=True)
        configuration = PANEL.format(thickness=thickness, plugins=plugins)
        (folder / "xfce4-panel.xml").write_text(configuration, encoding="utf-8")

    def _bus_has(self, name):
        with closing(BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])) as bus:
            return bus.name_has_owner(name)

    def _start_x_server(self):
        # Without a reset when its last client leaves, which may be one that only asked whether the server is there.
        # Without a pointer in the picture.
        _, display = self._start_announcing("Xvfb", "-screen", "0", f"{self._screen_size}x24", "-nolisten", "tcp",
                                            "-noreset", "-nocursor", "-fbdir", str(self.folder), "-displayfd", "{}")
        self.environment["DISPLAY"] = f":{display}"

    def _start_screen(self):
        self._start_x_server()
        self.start(["openbox"])
        wait_for(lambda: self.run("xdotool", "get_desktop").returncode == 0, "the window manager")

    def start_tray(self):
        self.start(["xfce4-panel", "--disable-wm-check"])
        self.wait_for_tray()

    def has_tray(self):
        return self._bus_has("org.kde.StatusNotifierWatcher")

    def wait_for_tray(self):
        wait_for(self.has_tray, "the tray", 30)

    def start_sound_server(self):
        self._sound_server = self.start([
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "-L", "module-null-sink sink_name=null norewinds=1", "-L", "module-native-protocol-unix"])
        wait_for(lambda: self.run("pactl", "info").returncode == 0, "the sound server")

    def stop_sound_server(self):
        self._sound_server.kill()
        self._sound_server.wait(10)

    def screenshot(self, name):
        shot = self._capture()
        shot.save(self._screenshots / f"{name}.png")
        return shot

    def _capture(self):
        return Screenshot.of_framebuffer(self.folder / "Xvfb_screen0")

    def windows(self, *criteria):
        """The visible windows that meet xdotool's criteria."""
        def search():
            result = self.run("xdotool", "search", "--onlyvisible", *criteria)
            # xdotool fails if a window closes during the search.
            return None if "X Error" in result.stderr else (result.stdout.split(),)
        return wait_for(search, "a search of the windows")[0]

    def rectangle(self, window):
        """Left, top, width and height of a window in pixels of the screen; None when it is gone."""
        lines = self.run("xdotool", "getwindowgeometry", "--shell", window).stdout.splitlines()
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")) if values else None

    def shadow(self, window):
        """How far the shadow that a window draws itself reaches from its left, right, top and bottom edge."""
        values = self.run("xprop", "-id", window, "_GTK_FRAME_EXTENTS").stdout.partition("=")[2]
        return tuple(map(int, values.split(","))) if values else (0, 0, 0, 0)

    def set_background(self, colour):
        """Fills the desktop, also for a compositor."""
        self.run("hsetroot", "-solid", "#{:02x}{:02x}{:02x}".format(*colour))

    def move_pointer(self, position):
        x, y = position
        self.run("xdotool", "mousemove", str(x), str(y))
        # The tray needs a moment to see that the pointer has come.
        time.sleep(0.1)

    def click(self, position, *, button="left", hold=0.02, times=1):
        self.move_pointer(position)
        number = str(BUTTONS[button])
        press = ["mousedown", number, "sleep", str(hold), "mouseup", number, "sleep", "0.08"]
        self.run("xdotool", *press * times)

    def keyboard_window(self):
        return self.run("xdotool", "getwindowfocus").stdout.strip()

    def active_window(self):
        """As the window manager, which has keys of its own, sees it."""
        return self.run("xdotool", "getactivewindow").stdout.strip()

    def focus(self, window):
        """Gives the keyboard to a window, and waits until the window manager knows."""
        self.run("xdotool", "windowfocus", "--sync", window)
        wait_for(lambda: self.active_window() == window, "the window to be active")

    def press_key(self, key):
        self.run("xdotool", "key", key)

    def end(self):
        """Ends every process that was started here, also by one of them."""
        self.accessibility.close()
        for process in self._processes:
            process.kill()
            process.wait(10)
            for pipe in filter(None, (process.stdin, process.stdout)):
                pipe.close()
        # Their children have become ours.
        limit = time.monotonic() + 10
        while (orphans := children_of(os.getpid())) and time.monotonic() < limit:
            for pid in orphans:
                os.kill(pid, signal.SIGKILL)
                os.waitpid(pid, 0)
        self._folder.cleanup()
