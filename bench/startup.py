"""How long programs take to start."""

import statistics
import subprocess
import time

from player import Player


def turn_off_screen_reader(session):
    """Only tests need one. Programs wait for its bus at their start."""
    del session.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]


def milliseconds_to_icon(session, program, environment=None):
    """From the start of the player to the registration of its icon with the tray. Ends the player again."""
    watch = session.start(["dbus-monitor", "--session", "interface='org.kde.StatusNotifierWatcher'"],
                          stdout=subprocess.PIPE)
    # The first message is about the monitor itself.
    watch.stdout.readline()
    begin = time.monotonic()
    player = Player(session, program, environment=environment)
    for line in watch.stdout:
        if b"RegisterStatusNotifierItem" in line:
            break
    result = 1000 * (time.monotonic() - begin)
    player.process.kill()
    player.process.wait()
    watch.kill()
    return result


def milliseconds_to_end(session, program, environment=None):
    """From the start of a program to its end."""
    begin = time.monotonic()
    status = session.start([program], environment=environment).wait()
    result = 1000 * (time.monotonic() - begin)
    assert status == 0, f"{program} has failed"
    return result


def compare_starts(session, build, rounds, environment=None):
    """The player's start and the run of an empty application, in turn: median and worst of each."""
    pairs = []
    # The first round fills the caches.
    for _ in range(rounds + 1):
        pairs.append((milliseconds_to_icon(session, build / "mireval", environment),
                      milliseconds_to_end(session, build / "bench" / "empty_application", environment)))
        # The tray takes a moment to forget the icon.
        time.sleep(0.2)
    return [(statistics.median(times), max(times)) for times in zip(*pairs[1:])]
