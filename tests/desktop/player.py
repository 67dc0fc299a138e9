"""The player under test, and what its user sees and does."""

import subprocess
import time
from pathlib import Path

from screen import ICON_COLOUR
from session import wait_for

# Said by Qt 6.8.
OBJECT_HAS_GONE = "qt.accessibility.atspi: Could not find accessible on path: "


class Player:
    def __init__(self, session, program, resources=None, *, arguments=(), name="player", environment=None,
                 output=None, shell=None):
        """Players that run at the same time need different names. All output may go to one file; a shell may start
        the program, "$0", with its arguments.
        """
        self._session = session
        self._stdout = session.folder / f"{name}.out"
        self._stderr = session.folder / f"{name}.err"
        environment = dict(environment or {})
        if resources:
            environment["MIREVAL_RESOURCES"] = str(resources)
        with open(self._stdout, "wb") as stdout, open(self._stderr, "wb") as stderr:
            command = ["sh", "-c", shell, program] if shell else [program]
            self.process = session.start([*command, *arguments], environment=environment, stdout=output or stdout,
                                         stderr=output or stderr)

    @property
    def output(self):
        return self._stdout.read_text(encoding="utf-8")

    @property
    def errors(self):
        """What it wrote to standard error, without Qt's answers to our own questions about objects that have gone."""
        lines = self._stderr.read_text(encoding="utf-8").splitlines(keepends=True)
        return "".join(line for line in lines if not line.startswith(OBJECT_HAS_GONE))

    def is_running(self):
        return self.process.poll() is None

    def exit_status(self, seconds=10):
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"the player still runs after {seconds} s") from None

    def find_icon(self, colour=ICON_COLOUR):
        """The centre of the icon, once the tray has ceased to move it."""
        def centre():
            return self._session.screenshot("icon").icon_centre(colour)

        def centre_at_rest():
            first = centre()
            time.sleep(0.1)
            return first if first == centre() else None
        return wait_for(centre_at_rest, "the icon in the tray")

    def anonymous_kilobytes(self):
        """The process's own memory, without pages of files, which come and go with the system's cache."""
        status = Path(f"/proc/{self.process.pid}/status").read_text(encoding="utf-8")
        return next(int(line.split()[1]) for line in status.splitlines() if line.startswith("RssAnon:"))

    def texts(self):
        """The names of all elements in the windows; empty while none is open."""
        return [element.name for element in self._elements()]

    def _elements(self):
        return self._session.accessibility.elements("Mireval")

    def panel(self):
        """The window that is open; None while there is none."""
        return next(iter(self._session.accessibility.windows("Mireval")), None)

    def wait_for_text(self, text, seconds=15):
        return wait_for(lambda: text in self.texts(), f"the text '{text}', showing {self.texts()}", seconds)

    def wait_until_gone(self, text):
        wait_for(lambda: text not in self.texts(), f"the text '{text}' to go, showing {self.texts()}")

    def wait_until_closed(self):
        wait_for(lambda: not self.texts(), "the panel to close")

    def buttons(self):
        return [element for element in self._elements() if element.role in ("push button", "button", "radio button")]

    def find_button(self, button):
        found = wait_for(lambda: [element for element in self.buttons() if element.name == button],
                         f"the button '{button}'")
        return found[0]

    def press(self, button):
        self._session.click(self.find_button(button).centre)

    def find_text(self, text):
        found = wait_for(lambda: [element for element in self._elements()
                                  if element.name == text and element.role != "frame"], f"the text '{text}'")
        return found[0]

    def find_by_role(self, role):
        """The only element of the role."""
        found, = wait_for(lambda: [element for element in self._elements() if element.role == role], f"a {role}")
        return found
