"""A private GNOME Shell with the extension that shows tray icons. It draws into memory and runs X programs through
Xwayland; its own interface for debugging moves the pointer and the keyboard.
"""

import json
import time
from pathlib import Path

from screen import Screenshot
from session import Session, wait_for

SCREEN_SIZE = (1280, 800)
SETTINGS = """[org/gnome/shell]
enabled-extensions=['ubuntu-appindicators@ubuntu.com']
welcome-dialog-last-shown-version='9999'
[org/gnome/desktop/interface]
enable-animations=false
[org/gnome/desktop/notifications]
show-banners=false
[org/gnome/desktop/background]
picture-options='none'
color-shading-type='solid'
primary-color='#2f6f4f'
"""
# The shell asks systemd to start what X programs need, unless it belongs to none of systemd's units. As seen from a
# cgroup of its own it belongs to none, wherever the tests run.
OUTSIDE_OF_UNITS = ("unshare", "--user", "--map-current-user", "--keep-caps", "--mount", "--cgroup", "sh", "-c",
                    'mount -t cgroup2 none /sys/fs/cgroup && exec "$0" "$@"')
X_SOCKETS = Path("/tmp/.X11-unix")
BUTTONS = {"left": "PRIMARY", "middle": "MIDDLE", "right": "SECONDARY"}
PREPARATION = """
  globalThis.Clutter = imports.gi.Clutter;
  const seat = Clutter.get_default_backend().get_default_seat();
  globalThis.pointer = seat.create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE);
  globalThis.keyboard = seat.create_virtual_device(Clutter.InputDeviceType.KEYBOARD_DEVICE);
  Main.overview.hide();
"""
# The shown texts in a part of the shell, each with its centre.
TEXTS = """
  (function texts(actor) {
    if (!actor.mapped)
      return {};
    const [x, y] = actor.get_transformed_position();
    const own = actor instanceof imports.gi.St.Label && actor.text
      ? {[actor.text]: [Math.round(x + actor.width / 2), Math.round(y + actor.height / 2)]} : {};
    return Object.assign(own, ...actor.get_children().map(texts));
  })
"""
WINDOW = "global.get_window_actors().map(actor => actor.meta_window).find(window => window.title === '{}')"
NOW = "GLib.get_monotonic_time()"


class GnomeSession(Session):
    def __init__(self, screenshots, **options):
        self._shell = None
        super().__init__(screenshots, tray=False, system_bus=True, **options)

    def _start_screen(self):
        settings = Path(self.environment["XDG_CONFIG_HOME"], "glib-2.0/settings/keyfile")
        settings.parent.mkdir(parents=True)
        settings.write_text(SETTINGS, encoding="utf-8")
        self.environment["GSETTINGS_BACKEND"] = "keyfile"
        if not X_SOCKETS.exists():
            X_SOCKETS.mkdir()
            X_SOCKETS.chmod(0o1777)
        self._shell = self.start([*OUTSIDE_OF_UNITS, "gnome-shell", "--headless", "--unsafe-mode",
                                  "--virtual-monitor", "{}x{}".format(*SCREEN_SIZE)])
        wait_for(lambda: self.evaluate("!Main.layoutManager._startingUp"), "GNOME Shell", 60)
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY"):
            self.environment[name] = self.evaluate(f"GLib.getenv('{name}')")
        self.evaluate(PREPARATION)
        wait_for(lambda: self.evaluate("!Main.overview.visible"), "the overview to go")
        self.wait_for_tray()

    def end(self):
        # Killed, it would leave the X display's lock and sockets behind.
        if self._shell:
            self._shell.terminate()
            self._shell.wait(10)
        super().end()

    def evaluate(self, script):
        """The value of a JavaScript expression in the shell; None while there is no shell."""
        reply = self.run("busctl", "--user", "--json=short", "call", "org.gnome.Shell", "/org/gnome/Shell",
                         "org.gnome.Shell", "Eval", "s", script)
        if reply.returncode:
            return None
        succeeded, value = json.loads(reply.stdout)["data"]
        assert succeeded, (script, value)
        return json.loads(value) if value else None

    def menu(self):
        """The texts in the menu that is open, each with its place; nothing while there is none."""
        menu = "Main.panel.menuManager.activeMenu"
        places = self.evaluate(f"{menu} ? {TEXTS}({menu}.actor) : {{}}")
        # Those of a menu that the shell has not laid out yet are not numbers.
        return {} if any(None in place for place in places.values()) else places

    def frame(self, title):
        """Left, top, width and height of the window with the title."""
        return self.evaluate(f"(f => [f.x, f.y, f.width, f.height])({WINDOW.format(title)}.get_frame_rect())")

    def maximize(self, title):
        """Maximises the window with the title, if there is one."""
        self.evaluate(f"{WINDOW.format(title)}?.maximize(Meta.MaximizeFlags.BOTH)")

    def start_bar(self, _edge):
        """The shell's own is always there, at the top."""

    def work_area(self, _position):
        """The screen without the bar: left, top, width and height."""
        return self.evaluate("(a => [a.x, a.y, a.width, a.height])(Main.layoutManager.getWorkAreaForMonitor(0))")

    def _capture(self):
        file = self.folder / "screenshot.png"
        result = self.run("busctl", "--user", "call", "org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                          "org.gnome.Shell.Screenshot", "Screenshot", "bbs", "false", "false", str(file))
        assert result.returncode == 0, result.stderr
        return Screenshot.by_command(self.environment, "convert", str(file), "-depth", "8", "ppm:-")

    def move_pointer(self, position):
        x, y = position
        for place in (x - 1, x):
            self.evaluate(f"pointer.notify_absolute_motion({NOW}, {place}, {y})")

    def click(self, position, *, button="left", hold=0.1, times=1):
        self.move_pointer(position)
        # The tray needs a moment to see that the pointer has come.
        time.sleep(0.1)
        number = f"Clutter.BUTTON_{BUTTONS[button]}"
        # At once, so that a busy machine does not make single clicks of double ones.
        self.evaluate("".join(f"pointer.notify_button({NOW}, {number}, Clutter.ButtonState.{state});"
                              for state in ["PRESSED", "RELEASED"] * (times - 1) + ["PRESSED"]))
        time.sleep(hold)
        self.evaluate(f"pointer.notify_button({NOW}, {number}, Clutter.ButtonState.RELEASED)")

    def press_key(self, key):
        for state in ("PRESSED", "RELEASED"):
            self.evaluate(f"keyboard.notify_keyval({NOW}, Clutter.KEY_{key}, Clutter.KeyState.{state})")
