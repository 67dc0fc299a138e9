"""Listens to what a sound server plays."""

import array
import math
import subprocess
import threading
import time

RATE = 44100
SILENCE = 20  # Largest sample, of 32767, that still counts as silence.


class Recorder:
    """Starts to record a source when it is created."""

    def __init__(self, session, source):
        self._samples = array.array("h")
        self._lock = threading.Lock()
        self._process = session.start(
            ["parec", "-d", source, "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1", "--latency-msec=20"],
            stdout=subprocess.PIPE)
        self._thread = threading.Thread(target=self._read, daemon=True)
        self._thread.start()

    def _read(self):
        rest = b""
        while chunk := self._process.stdout.read1(65536):
            rest += chunk
            whole = len(rest) - len(rest) % 2
            with self._lock:
                self._samples.frombytes(rest[:whole])
            rest = rest[whole:]

    def next(self, seconds):
        """The samples of the next seconds; fails if the server delivers none."""
        with self._lock:
            start = len(self._samples)
        end = start + int(seconds * RATE)
        limit = time.monotonic() + seconds + 10
        while True:
            with self._lock:
                if len(self._samples) >= end:
                    return self._samples[start:end]
            if time.monotonic() > limit:
                raise AssertionError("the sound server delivers no recording")
            time.sleep(0.02)

    def mark(self):
        """This moment, for `since`."""
        with self._lock:
            return len(self._samples)

    def since(self, mark):
        """The samples since that moment."""
        with self._lock:
            return self._samples[mark:]


def is_silent(samples):
    return max(map(abs, samples), default=0) <= SILENCE


def pitch(samples):
    """The frequency of a pure tone in hertz, from its upward zero crossings."""
    crossings = [i for i in range(1, len(samples)) if samples[i - 1] < 0 <= samples[i]]
    if len(crossings) < 2:
        return math.nan
    return (len(crossings) - 1) * RATE / (crossings[-1] - crossings[0])


def longest_silence(samples):
    """The longest silence in seconds, in steps of 0.01."""
    step = RATE // 100
    longest = current = 0
    for start in range(0, len(samples) - step + 1, step):
        current = current + 1 if is_silent(samples[start:start + step]) else 0
        longest = max(longest, current)
    return longest / 100
