"""A desktop with the player on it, whose parts can be taken away and given back."""

import math
import os
import shutil
import signal
import subprocess
import time

from clocks import Clocks
from listener import SETTLING_SECONDS, Listener
from machine import Machine
from media import MediaPlayer, player_names
from panel_witness import look
from player import Player
from sound import is_silent, pitch
from sound_servers import SERVERS, SINKS

LOWEST_TONE, TONE_STEP = 300, 25  # Hertz
WITNESS_SECONDS = 0.24
RECORDING_SECONDS = SETTLING_SECONDS + WITNESS_SECONDS


def tone_number(samples):
    """The number of the tone that is heard all the time, 0 for silence, None for anything else or no recording."""
    if samples is None:
        return None
    if is_silent(samples):
        return 0
    half = len(samples) // 2
    pitches = [0 if is_silent(part) else pitch(part) for part in (samples[:half], samples[half:])]
    if any(map(math.isnan, pitches)):
        return None
    numbers = {round((frequency - LOWEST_TONE) / TONE_STEP) if frequency else 0 for frequency in pitches}
    return numbers.pop() if len(numbers) == 1 else None


class ChaosSession:
    """A private desktop with a sound server of either kind."""

    def __init__(self, screenshots, server):
        self.server = SERVERS[server](self)
        self.clocks = None
        super().__init__(screenshots)

    def _private_environment(self):
        environment = super()._private_environment()
        if "MIREVAL_SHIFTED_CLOCKS" in os.environ:
            self.clocks = Clocks(os.environ["MIREVAL_SHIFTED_CLOCKS"], self.folder)
        return environment

    def start(self, command, *, environment=None, **options):
        shifted = self.clocks.environment(command) if self.clocks else {}
        return super().start(command, environment={**shifted, **(environment or {})}, **options)

    def start_sound_server(self):
        self.server.start()


def session_kind(desktop):
    """The class of a session on such a desktop."""
    if desktop == "sway":
        # Its modules need programs that tests on X11 can do without.
        from sway_desktop import SwayDesktop as Desktop
    else:
        from x11_desktop import X11Desktop as Desktop

    class DesktopSession(ChaosSession, Desktop):
        pass
    return DesktopSession


class Desk:
    def __init__(self, screenshots, server, program, resources, desktop="xfce"):
        self.machine = None
        self.session = session_kind(desktop)(screenshots, server)
        try:
            # A copy, since tracks are taken away.
            self.resources = self.session.folder / "resources"
            shutil.copytree(resources, self.resources)
            self.machine = Machine(self.session, resources, self.resources)
            self.player = Player(self.session, program, self.resources,
                                 environment={**self.machine.environment, "LANG": "C.UTF-8"})
            self.player.find_icon()
            self.recorder = Listener(self.session)
            self.recorder.follow(SINKS)
        except BaseException:
            self.end()
            raise
        self.controls = MediaPlayer(self.session)

    def end(self):
        # First, since the session removes the folder of the disk.
        if self.machine:
            self.machine.end()
        self.session.end()

    # What the witnesses say.

    def heard_tone(self):
        """The number of the tone that is heard of all sinks together, 0 for silence, None for anything else."""
        tones = {tone_number(samples) for samples in self.recorder.next(WITNESS_SECONDS)}
        tones = tones - {0} or tones
        return tones.pop() if len(tones) == 1 else None

    def media(self):
        """Status and title as the bus says them; None while the player is not among the media players, or no bus there.
        """
        return (self.controls.status, self.controls.title) if self._is_among_players() else None

    def position(self):
        """Seconds, as the bus says them; None while the player is not among the media players."""
        return self.controls.position_seconds if self._is_among_players() else None

    def _is_among_players(self):
        return self.session.has_bus and self.controls.name in player_names(self.session)

    def written_lines(self):
        return self.player.output.splitlines()

    def shown(self):
        """The windows and the icon."""
        return look(self.session)

    # What the user does.

    def click_icon(self, bar, button):
        self.wait_until_clicks_count()
        self.session.click(self.session.find_icon(bar), button=button)

    @staticmethod
    def wait_until_clicks_count():
        """Sooner, it would be the second click of a double click, or the click that has closed the panel."""
        time.sleep(0.45)

    def press(self, button):
        self.session.click(self.session.on_screen(self.player.find_button(button).centre))

    def start_again(self, *arguments, status=0, errors=""):
        """Starts another copy, which ends at once with this status and beginning of what it writes."""
        copy = subprocess.run([self.player.process.args[0], *arguments], env=self.session.environment,
                              capture_output=True, text=True, timeout=20)
        as_expected = copy.stderr.startswith(errors) if errors else not copy.stderr
        if (copy.returncode, copy.stdout) != (status, "") or not as_expected:
            raise AssertionError(f"a second start: {copy}")

    # What is taken away and comes back.

    def kill_server(self):
        self.session.server.signal(signal.SIGKILL)

    def start_server(self):
        self.session.start_sound_server()
        self.recorder.start_anew(SINKS)

    def kill_server_part(self, part):
        self.session.server.kill_part(part)

    def remove_sink(self, sink):
        self.recorder.follow([other for other in self._sinks() if other != sink])
        self.session.server.remove_sink(sink)

    def add_sink(self, sink):
        self.session.server.add_sink(sink)
        self.recorder.follow(self._sinks())

    def _sinks(self):
        """Those that are recorded; a headset is heard on another one."""
        there = self.session.server.sinks()
        return [sink for sink in SINKS if sink in there]

    def move_stream(self, sinks):
        """Moves the player's stream to the first of these sinks that it is not on; returns that, None without one."""
        server = self.session.server
        stream = server.stream()
        target = next((sink for sink in sinks if stream and sink != stream[1]), None)
        return target if target and server.move(stream[0], target) else None

    def playing_sink(self):
        """The sink that the player's stream is on; None while it has no stream."""
        stream = self.session.server.stream()
        return stream and stream[1]

    def suspend_sink(self, sink):
        self.session.server.suspend(sink, True)
        if not self.session.server.suspends_sinks_in_use:
            # PipeWire plays on, but its recordings of the sink are silent from now on.
            self.recorder.start_anew(self._sinks())

    def resume_sink(self, sink):
        self.session.server.suspend(sink, False)

    def plug_headset_in(self):
        self.session.server.add_headset()

    def pull_headset_out(self):
        self.session.server.remove_headset()

    def freeze_server(self):
        self.session.server.signal(signal.SIGSTOP)

    def thaw_server(self):
        self.session.server.signal(signal.SIGCONT)

    def freeze_player(self):
        self.player.process.send_signal(signal.SIGSTOP)

    def thaw_player(self):
        self.player.process.send_signal(signal.SIGCONT)

    def hide_tracks(self, mode):
        for track in (self.resources / "PreviewAudio").glob(f"{mode}-*.m4a"):
            track.rename(track.with_suffix(".hidden"))

    def show_tracks(self, mode):
        for track in (self.resources / "PreviewAudio").glob(f"{mode}-*.hidden"):
            track.rename(track.with_suffix(".m4a"))
