"""Private sound servers of either kind. Their sinks can be taken away, their programs killed and stopped."""

import contextlib
import signal
import time

from session import wait_for

SINKS = ("null", "second")
HEADSET = "headset"
# The way from the headset's sink to where it is heard.
HEADSET_LATENCY = 0.5


class SoundServer:
    """What both kinds can do by their common protocol."""

    sink_options = ()
    loopback_options = ()
    # Whether a sink that is in use stands still when it is told to.
    suspends_sinks_in_use = False

    def __init__(self, session):
        self._session = session
        # When the server was last there with its sinks.
        self.ready_at = 0.0

    def control(self, *arguments):
        result = self._session.run("timeout", "5", "pactl", *arguments)
        if result.returncode:
            raise AssertionError(f"pactl {arguments}: {result.stderr}")
        return result.stdout

    def answers(self):
        return self._session.run("timeout", "2", "pactl", "info").returncode == 0

    def sinks(self):
        return [line.split("\t")[1] for line in self.control("list", "short", "sinks").splitlines()]

    def add_sink(self, name):
        self.control("load-module", "module-null-sink", f"sink_name={name}", *self.sink_options)
        wait_for(lambda: f"{name}.monitor" in self.control("list", "short", "sources"), f"the sink {name}")

    def remove_sink(self, name):
        self._unload(f"sink_name={name}")

    def _unload(self, argument):
        for line in self.control("list", "short", "modules").splitlines():
            if argument in line.split():
                self.control("unload-module", line.split()[0])

    def suspend(self, sink, suspended):
        self.control("suspend-sink", sink, "1" if suspended else "0")

    def set_default(self, sink):
        self.control("set-default-sink", sink)

    def stream(self):
        """The player's stream and the sink that it plays on; None while it has none."""
        sinks = dict(line.split("\t")[:2] for line in self.control("list", "short", "sinks").splitlines())
        streams = [line.split("\t") for line in self.control("list", "short", "sink-inputs").splitlines()]
        clients = self.control("list", "short", "clients").splitlines()
        players = [line.split("\t")[0] for line in clients if line.split("\t")[-1] == "mireval"]
        return next(((stream[0], sinks.get(stream[1])) for stream in streams if stream[2] in players), None)

    def move(self, stream, sink):
        """False when the stream was replaced meanwhile."""
        return self._session.run("timeout", "5", "pactl", "move-sink-input", stream, sink).returncode == 0

    def add_headset(self):
        """Another default sink, which is heard on the first one, but later."""
        self.add_sink(HEADSET)
        self.control("load-module", "module-loopback", f"source={HEADSET}.monitor", f"sink={SINKS[0]}",
                     f"latency_msec={HEADSET_LATENCY * 1000:.0f}", "sink_dont_move=1", *self.loopback_options)
        self.set_default(HEADSET)

    def remove_headset(self):
        # Else WirePlumber has the next one play to itself, as it is the default from the start.
        self.set_default(SINKS[0])
        self._unload(f"source={HEADSET}.monitor")
        self.remove_sink(HEADSET)


class PulseAudio(SoundServer):
    name = "pulseaudio"
    parts = ()
    # Without rewinding, since the null sink would otherwise render seconds ahead while it is idle.
    sink_options = ("norewinds=1",)
    # A constant rate, since a tone is told by its pitch.
    loopback_options = ("adjust_time=0",)
    suspends_sinks_in_use = True

    def start(self):
        sinks = [part for name in SINKS
                 for part in ("-L", " ".join(("module-null-sink", f"sink_name={name}", *self.sink_options)))]
        self._process = self._session.start([
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", *sinks,
            "-L", "module-null-source source_name=none", "-L", "module-native-protocol-unix"])
        wait_for(self.answers, "the sound server")
        # Of its own, since recordings of the default source are moved when another one becomes the default.
        self.control("set-default-source", "none")
        self.ready_at = time.monotonic()

    def signal(self, number):
        self._process.send_signal(number)
        if number == signal.SIGKILL:
            self._process.wait(10)

    def has_ended(self):
        return []


class PipeWire(SoundServer):
    name = "pipewire"
    parts = ("pipewire", "wireplumber", "pipewire-pulse")
    sink_options = ("rate=44100",)

    def __init__(self, session):
        super().__init__(session)
        self._processes = {}
        # How often it has come up so that it does not play.
        self.restarts = 0

    def start(self):
        """Starts what does not run."""
        # WirePlumber 0.4.13 now and then comes up without linking anything, or pipewire-pulse ceases to answer when it
        # comes back. Then all is started anew.
        for _ in range(5):
            with contextlib.suppress(AssertionError):
                self._start_parts()
                self.ready_at = time.monotonic()
                if self._is_linked():
                    return
            self.restarts += 1
            self.signal(signal.SIGKILL)
        raise AssertionError("PipeWire does not play")

    def _start_parts(self):
        if "pipewire" in self.has_ended():
            # The others end without it, but maybe later.
            self.signal(signal.SIGKILL)
        for part in self.has_ended():
            self._processes[part] = self._session.start([part])
        wait_for(self.answers, "the sound server")
        if HEADSET in self.sinks():
            self.remove_headset()
        for name in SINKS:
            if name not in self.sinks():
                self.add_sink(name)
        wait_for(self._has_default_sink, "a default sink", 5)

    def _has_default_sink(self):
        return self._session.run("timeout", "2", "pactl", "set-default-sink", SINKS[0]).returncode == 0

    def _is_linked(self):
        command = f"timeout 2 parec --raw --latency-msec=40 -d {SINKS[0]}.monitor | head -c 64 | wc -c"
        return self._session.run("sh", "-c", command).stdout.strip() != "0"

    def has_ended(self):
        return [part for part in self.parts
                if part not in self._processes or self._processes[part].poll() is not None]

    def kill_part(self, part):
        self._processes[part].kill()
        self._processes[part].wait(10)

    def signal(self, number):
        for process in self._processes.values():
            process.send_signal(number)
            if number == signal.SIGKILL:
                process.wait(10)


SERVERS = {server.name: server for server in (PulseAudio, PipeWire)}
