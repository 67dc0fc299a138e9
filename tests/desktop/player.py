"""The player under test, and what its user sees and does."""

import subprocess

from session import wait_for


class Player:
    def __init__(self, session, program, resources=None):
        self._session = session
        self._stdout = session.folder / "player.out"
        self._stderr = session.folder / "player.err"
        environment = {"MIREVAL_RESOURCES": str(resources)} if resources else {}
        with open(self._stdout, "wb") as stdout, open(self._stderr, "wb") as stderr:
            self.process = session.start([program], environment=environment, stdout=stdout, stderr=stderr)

    @property
    def output(self):
        return self._stdout.read_text(encoding="utf-8")

    @property
    def errors(self):
        return self._stderr.read_text(encoding="utf-8")

    def is_running(self):
        return self.process.poll() is None

    def exit_status(self, seconds=10):
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"the player still runs after {seconds} s") from None

    def find_icon(self):
        return wait_for(lambda: self._session.screenshot("icon").icon_centre(), "the icon in the tray")

    def texts(self):
        """The names of all that the panel shows; nothing while it is closed."""
        return [element.name for element in self._elements()]

    def _elements(self):
        return self._session.accessibility.elements("Mireval")

    def wait_for_text(self, text, seconds=15):
        return wait_for(lambda: text in self.texts(), f"the text '{text}', showing {self.texts()}", seconds)

    def wait_until_closed(self):
        wait_for(lambda: not self.texts(), "the panel to close")

    def press(self, button):
        found = wait_for(
            lambda: [element for element in self._elements()
                     if element.name == button and element.role in ("push button", "button")],
            f"the button '{button}'")
        self._session.click(found[0].centre)
