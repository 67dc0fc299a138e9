"""Private sound servers of either kind, with one sink, that can be killed and stopped."""

import signal

from session import wait_for


class PulseAudio:
    name = "pulseaudio"

    def __init__(self, session):
        self._session = session
        self._process = None

    def start(self):
        self._process = self._session.start([
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "-L", "module-null-sink sink_name=null norewinds=1", "-L", "module-native-protocol-unix"])

    def signal(self, number):
        self._process.send_signal(number)
        if number == signal.SIGKILL:
            self._process.wait(10)


class PipeWire:
    name = "pipewire"

    def __init__(self, session):
        self._session = session
        self._processes = []

    def start(self):
        self._processes = [self._session.start([program]) for program in ("pipewire", "wireplumber", "pipewire-pulse")]
        self.wait_for_answer()
        self._session.run("pactl", "load-module", "module-null-sink", "sink_name=null", "rate=44100")
        self._session.run("pactl", "set-default-sink", "null")

    def wait_for_answer(self):
        wait_for(lambda: self._session.run("timeout", "2", "pactl", "info").returncode == 0, "the sound server")

    def signal(self, number):
        for process in self._processes:
            process.send_signal(number)
            if number == signal.SIGKILL:
                process.wait(10)


SERVERS = {server.name: server for server in (PulseAudio, PipeWire)}
