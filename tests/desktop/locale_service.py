"""A mock of the system's locale service on the system's message bus."""

from session import wait_for

NAME = "org.freedesktop.locale1"
PATH = "/org/freedesktop/locale1"
MOCK = "org.freedesktop.DBus.Mock"


class LocaleService:
    def __init__(self, session, assignments=()):
        """Starts the service with a locale such as ["LANG=ja_JP.UTF-8"]; announces nothing."""
        self._session = session
        self._process = session.start_mock("--system", NAME, PATH, NAME)
        wait_for(lambda: self._attempt("AddProperty", "ssv", NAME, "Locale", *_texts(assignments)).returncode == 0,
                 "the locale service")

    def end(self):
        """Leaves the bus, as the real one does after a while without calls."""
        self._process.kill()
        self._process.wait(10)

    def set_locale(self, assignments):
        """Changes the locale and announces the new one."""
        self._call("UpdateProperties", "sa{sv}", NAME, "1", "Locale", *_texts(assignments))

    def _attempt(self, method, *arguments):
        return self._session.run("busctl", "--system", "call", NAME, PATH, MOCK, method, *arguments)

    def _call(self, method, *arguments):
        if (result := self._attempt(method, *arguments)).returncode:
            raise AssertionError(f"{method}: {result.stderr}")


def _texts(texts):
    return "as", str(len(texts)), *texts
