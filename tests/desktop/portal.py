"""A mock of the desktop's settings portal on the session's message bus."""

import json
import sys
from pathlib import Path

from session import wait_for

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
MOCK = "org.freedesktop.DBus.Mock"
TEMPLATE = Path(__file__).with_name("portal_template.py")
NO_PREFERENCE, DARK, LIGHT = 0, 1, 2


def _arguments(preference):
    return "--template", str(TEMPLATE), "--parameters", json.dumps({"color-scheme": preference})


class SettingsPortal:
    def __init__(self, session, preference=NO_PREFERENCE):
        self._session = session
        self._process = session.start_mock(*_arguments(preference))
        wait_for(lambda: session.run("busctl", "--user", "status", NAME).returncode == 0, "the settings portal")

    def end(self):
        self._process.kill()
        self._process.wait(10)

    def set_color_scheme(self, preference):
        """Changes the user's preference and announces it."""
        result = self._session.run("busctl", "--user", "call", NAME, PATH, MOCK, "SetColorScheme", "u", str(preference))
        if result.returncode:
            raise AssertionError(result.stderr)


def offer_on_demand(session, preference):
    """Lets the bus start the portal when somebody calls it."""
    services = Path(session.environment["XDG_DATA_HOME"], "dbus-1/services")
    services.mkdir(parents=True)
    command = " ".join(f"'{part}'" for part in (sys.executable, "-B", "-m", "dbusmock", *_arguments(preference)))
    (services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec={command}\n", encoding="utf-8")
    session.run("busctl", "--user", "call", "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                "ReloadConfig")
