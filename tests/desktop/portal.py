"""A mock of the desktop's settings portal on the session's message bus."""

import json
from pathlib import Path

from session import wait_for

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
MOCK = "org.freedesktop.DBus.Mock"
TEMPLATE = Path(__file__).with_name("portal_template.py")
NO_PREFERENCE, DARK, LIGHT = 0, 1, 2


class SettingsPortal:
    def __init__(self, session, preference=NO_PREFERENCE):
        self._session = session
        self._process = session.start_mock("--template", str(TEMPLATE), "--parameters",
                                           json.dumps({"color-scheme": preference}))
        wait_for(lambda: session.run("busctl", "--user", "status", NAME).returncode == 0, "the settings portal")

    def end(self):
        self._process.kill()
        self._process.wait(10)

    def set_color_scheme(self, preference):
        """Changes the user's preference and announces it."""
        result = self._session.run("busctl", "--user", "call", NAME, PATH, MOCK, "SetColorScheme", "u", str(preference))
        if result.returncode:
            raise AssertionError(result.stderr)
