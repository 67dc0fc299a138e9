"""What running costs: wake-ups, processor time and memory of the player and its peers, playing and paused."""

import socket
import time
from contextlib import contextmanager
from dataclasses import dataclass
from pathlib import Path

from player import Player
from session import Session, children_of, wait_for
from table import Row

WINDOW_SECONDS = 6
STATES = {"idle": "idle, never opened", "open": "playing, panel open", "playing": "playing, panel closed",
          "asked": "with a widget's clock", "paused": "paused, panel closed"}


@dataclass
class Cost:
    wake_ups: float  # A second, of all threads.
    processor: float  # Per cent of a core.
    own: float  # Memory that is nobody else's and in no file, in MB.
    resident: float  # All memory, in MB.


def memory(pid):
    """Own and resident memory in MB."""
    status = dict(line.split(":", 1) for line in Path(f"/proc/{pid}/status").read_text().splitlines())
    return tuple(int(status[name].split()[0]) / 1024 for name in ("RssAnon", "VmRSS"))


def _activity(pid):
    """How often its threads went to sleep, and how many seconds they ran."""
    sleeps = nanoseconds = 0
    for task in Path(f"/proc/{pid}/task").iterdir():
        status = dict(line.split(":", 1) for line in (task / "status").read_text().splitlines())
        sleeps += int(status["voluntary_ctxt_switches"])
        nanoseconds += int((task / "schedstat").read_text().split()[0])
    return sleeps, nanoseconds / 1e9


def measure(pid, settle_seconds=2):
    time.sleep(settle_seconds)
    sleeps, seconds = _activity(pid)
    time.sleep(WINDOW_SECONDS)
    later_sleeps, later_seconds = _activity(pid)
    wake_ups = (later_sleeps - sleeps) / WINDOW_SECONDS
    return Cost(wake_ups, 100 * (later_seconds - seconds) / WINDOW_SECONDS, *memory(pid))


def wait_until_sounding(session):
    wait_for(lambda: "RUNNING" in session.run("pactl", "list", "short", "sinks").stdout, "sound")


@contextmanager
def widget_with_clock(session):
    """Asks for the position once a second."""
    question = ("gdbus call --session --dest org.mpris.MediaPlayer2.mireval --object-path /org/mpris/MediaPlayer2"
                " --method org.freedesktop.DBus.Properties.Get org.mpris.MediaPlayer2.Player Position")
    process = session.start(["sh", "-c", f"while sleep 1; do {question}; done"])
    yield
    process.kill()


def cost_of_mireval(session, program):
    """The costs by state."""
    player = Player(session, program)
    pid = player.process.pid
    icon = player.find_icon()
    costs = {"idle": measure(pid)}
    session.click(icon)
    player.press("Focus")
    wait_until_sounding(session)
    costs["open"] = measure(pid)
    session.press_key("Escape")
    player.wait_until_closed()
    # The memory is that of twelve seconds after the panel was closed.
    costs["playing"] = measure(pid, 12 - WINDOW_SECONDS)
    with widget_with_clock(session):
        costs["asked"] = measure(pid)
    session.click(icon)
    player.press("Pause")
    session.press_key("Escape")
    player.wait_until_closed()
    costs["paused"] = measure(pid, 12 - WINDOW_SECONDS)
    return costs


@dataclass
class Peer:
    """A player that takes commands, a line each, through the socket "{folder}/socket"."""

    command: list
    play: list
    pause: list
    files: dict  # What it finds in its folder.
    in_terminal: bool = False


PEERS = {
    "mpv": Peer(["mpv", "--no-config", "--idle", "--no-video", "--no-terminal", "--ao=pulse",
                 "--input-ipc-server={folder}/socket"],
                ['{{"command":["loadfile","{track}"]}}'], ['{{"command":["set_property","pause",true]}}'], {}),
    "mpd": Peer(["mpd", "--no-daemon", "{folder}/mpd.conf"], ['add "{track}"', "play 0"], ["pause 1"],
                {"mpd.conf": 'bind_to_address "{folder}/socket"\n'
                             'audio_output {{\n type "pulse"\n name "pulse"\n}}\n'}),
    "cmus": Peer(["cmus", "--listen", "{folder}/socket"], ["player-play {track}"], ["player-pause"],
                 {"rc": "set output_plugin=pulse\n"}, in_terminal=True),
}


def _start(session, peer, folder):
    """The process id of a peer that is about to listen."""
    command = [word.format(folder=folder) for word in peer.command]
    if not peer.in_terminal:
        return session.start(command).pid
    # Nobody reads what it draws.
    terminal = session.start(["script", "--quiet", "--command", f"exec {' '.join(command)}", "/dev/null"],
                             environment={"TERM": "xterm", "CMUS_HOME": str(folder)})
    return wait_for(lambda: children_of(terminal.pid), command[0])[0]


def cost_of_peer(session, name, track):
    """The costs by state."""
    peer = PEERS[name]
    folder = session.folder / name
    folder.mkdir()
    for file, content in peer.files.items():
        (folder / file).write_text(content.format(folder=folder), encoding="utf-8")
    pid = _start(session, peer, folder)
    wait_for((folder / "socket").exists, name)
    with socket.socket(socket.AF_UNIX) as connection:
        connection.connect(str(folder / "socket"))

        def send(lines):
            connection.sendall("".join(line.format(track=track) + "\n" for line in lines).encode())

        send(peer.play)
        wait_until_sounding(session)
        costs = {"playing": measure(pid)}
        send(peer.pause)
        costs["paused"] = measure(pid)
    return costs


def cost_rows(build, screenshots):
    """One session for each player: the sound server asks at the pace of its most demanding stream."""
    track = build / "resources" / "PreviewAudio" / "focus-1.m4a"
    costs = {}
    for name in ("mireval", *PEERS):
        session = Session(screenshots)
        try:
            costs[name] = (cost_of_mireval(session, build / "mireval") if name == "mireval"
                           else cost_of_peer(session, name, track))
        finally:
            session.end()

    def rows(figure, field, goals=(None,) * len(STATES), digits=1):
        return [Row(f"{figure}, {text}",
                    {name: getattr(states[state], field) for name, states in costs.items() if state in states},
                    goal, digits)
                for (state, text), goal in zip(STATES.items(), goals)]

    return [*rows("wake-ups a second", "wake_ups", (0, None, 9, None, 2)), *rows("CPU %", "processor", digits=2),
            *rows("own memory MB", "own"), *rows("resident MB", "resident")]
