"""Hears what the sinks of a sound server play, and knows when it was played."""

import array
import collections
import subprocess
import threading
import time

from sound import RATE, is_silent

# More sound at once than has passed in time is from before: the server or this program has stood still.
LONGEST_LEAD_SECONDS = 0.15
# What arrives so soon after an act or a burst may still be from before.
SETTLING_SECONDS = 0.1
# Silence is measured in slots. Shorter runs may be the recording's own.
SLOTS_PER_SECOND = 100
SHORTEST_SILENCE_SECONDS = 0.15
KEPT_SECONDS = 30
NO_RECORDING_SECONDS = 1.5


class Timeline:
    """Samples with the times at which they arrived. Any thread."""

    def __init__(self, now):
        self._chunks = collections.deque()
        self._lock = threading.Lock()
        self._lead = 0.0
        # Samples from before this time were not all recorded when they arrived.
        self.trusted_from = now
        self.last_arrival = now

    def add(self, samples, now):
        """Samples have arrived. Returns the slots in which there was sound."""
        with self._lock:
            passed, self.last_arrival = now - self.last_arrival, now
            self._lead = max(0.0, self._lead + len(samples) / RATE - passed)
            if self._lead > LONGEST_LEAD_SECONDS:
                self._lead, self.trusted_from = 0.0, now
            self._chunks.append((now, samples))
            while self._chunks[0][0] < now - KEPT_SECONDS:
                self._chunks.popleft()
        step = RATE // SLOTS_PER_SECOND
        return {int(max(now - passed, now - (len(samples) - start) / RATE) * SLOTS_PER_SECOND)
                for start in range(0, len(samples), step) if not is_silent(samples[start:start + step])}

    def samples(self, since, seconds):
        """The first samples of this length that were recorded after a time; None until they have arrived."""
        with self._lock:
            since = max(since, self.trusted_from) + SETTLING_SECONDS
            found = array.array("h")
            for _, samples in (chunk for chunk in self._chunks if chunk[0] > since):
                found.extend(samples)
        count = int(seconds * RATE)
        return found[:count] if len(found) >= count else None


class SinkRecorder:
    """Records a sink's monitor from its creation on."""

    def __init__(self, session, sink, slots):
        self._slots = slots
        self.timeline = Timeline(time.monotonic())
        self._process = session.start(
            ["parec", "-d", f"{sink}.monitor", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1",
             "--latency-msec=40",
             # Without this, WirePlumber moves a recording of the default sink when another one becomes the default.
             "--property=node.dont-reconnect=true"], stdout=subprocess.PIPE)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        rest = b""
        while chunk := self._process.stdout.read1(65536):
            rest += chunk
            whole = len(rest) - len(rest) % 2
            self._slots.update(self.timeline.add(array.array("h", rest[:whole]), time.monotonic()))
            rest = rest[whole:]

    def is_running(self):
        return self._process.poll() is None

    def stop(self):
        self._process.kill()
        self._process.wait(10)


class Listener:
    """Records several sinks at a time. A recording that ends is started anew when it is next asked for."""

    def __init__(self, session):
        self._session = session
        self._recorders = {}
        # Of all sinks, those that are gone included.
        self._slots = set()

    def follow(self, sinks):
        """Listens to these sinks and no others. Ends a recording before its sink goes, or the server moves it."""
        for sink in [sink for sink in self._recorders if sink not in sinks]:
            self._recorders.pop(sink).stop()
        for sink in sinks:
            if sink not in self._recorders or not self._recorders[sink].is_running():
                self._recorders[sink] = SinkRecorder(self._session, sink, self._slots)

    def start_anew(self, sinks):
        self.follow(())
        self.follow(sinks)

    def next(self, seconds):
        """What each sink plays in the next seconds; None where nothing can be recorded."""
        self.follow(tuple(self._recorders))
        since = time.monotonic()
        found = {}
        while len(found) < len(self._recorders) and time.monotonic() < since + seconds + NO_RECORDING_SECONDS:
            time.sleep(0.01)
            for sink, recorder in self._recorders.items():
                if sink not in found and (samples := recorder.timeline.samples(since, seconds)):
                    found[sink] = samples
        return [found.get(sink) for sink in self._recorders]

    def silent_seconds(self, begin, end):
        """For how long no sink sounded between two times."""
        last = max((recorder.timeline.last_arrival for recorder in self._recorders.values()), default=0)
        if end - last < 2 * LONGEST_LEAD_SECONDS:
            end = min(end, last)
        return silence(self._slots, begin, end)


def silence(slots, begin, end):
    """How many of the seconds are in silent runs that are not too short."""
    total = run = 0
    shortest = SHORTEST_SILENCE_SECONDS * SLOTS_PER_SECOND
    for slot in range(int(begin * SLOTS_PER_SECOND), int(end * SLOTS_PER_SECOND) + 1):
        if slot in slots:
            total, run = total + (run if run >= shortest else 0), 0
        else:
            run += 1
    return (total + (run if run >= shortest else 0)) / SLOTS_PER_SECOND
