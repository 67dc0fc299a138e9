"""What happens to the machine below the player: its files, clocks, memory and processors."""

import time

from descriptors import Descriptors
from machine import resident_megabytes
from model import MODES
from steps import Steps
from user_steps import UserSteps

DAMAGES = {"nothing": "delete", "garbage": "spoil", "half": "truncate", "other": "replace"}
COVER_FAULTS = ("spoil_covers", "remove_covers", "restore_covers")
DISK_FAULTS = {"full": ("fill", "free"), "read-only": ("make_read_only", "make_writable")}
PRESSES = ("icon", "media_key", "mode_button", "next", "previous", "settings_key", "transport")
BUSY_SECONDS = 3
MEMORY_SECONDS = 3
DAY = 24 * 60 * 60


class MachineSteps(Steps):
    def __init__(self, walk):
        super().__init__(walk)
        self._machine = self.desk.machine

    def possible(self):
        steps = [(2, self.freeze_player), (1, self.busy_processors), (1, self.covers)]
        steps += self._file_steps()
        if self._machine.disk:
            steps.append((3, self.mend_disk) if self.model.disk else (1, self.spoil_disk))
        if self._machine.memory:
            steps.append((1, self.memory_shortage))
        if self.desk.session.clocks:
            steps += [(1, self.set_wall_clock), (2, self.sleep)]
        if self.model.sounds and self._presses():
            # Its connection to the server is there, and needs no descriptor.
            steps.append((2, self.no_descriptors))
        return steps

    def _file_steps(self):
        steps = [(1, self.hide_tracks) if self.model.missing_mode is None else (3, self.show_tracks)]
        if self._whole_tracks():
            steps.append((3, self.damage_track))
        if self._damaged_tracks():
            steps.append((1 + len(self._damaged_tracks()), self.restore_track))
        return steps

    def freeze_player(self):
        seconds = self.random.uniform(0.2, 4)
        self.desk.freeze_player()
        time.sleep(seconds)
        self.desk.thaw_player()
        self.model.lose_music(seconds + 3)
        return f"{seconds:.1f} s"

    def busy_processors(self):
        self._machine.keep_busy(BUSY_SECONDS)
        self.model.lose_music(1)

    # Resource files. Only files whose place is known are damaged, so that the rest of the places are sound.

    def hide_tracks(self):
        mode = self.random.choice([mode for mode in MODES if mode != self.model.mode])
        self.restore_all(mode)
        self.desk.hide_tracks(mode)
        self.model.missing_mode = mode
        return mode

    def show_tracks(self):
        self.desk.show_tracks(self.model.missing_mode)
        self.model.missing_mode = None

    def _whole_tracks(self):
        return sorted(track for track in self._walk.titles
                      if track not in self.model.files and track[0] != self.model.missing_mode)

    def _damaged_tracks(self):
        return sorted(self.model.files)

    def damage_track(self):
        # Often one that is about to be played.
        near = [track for track in self._whole_tracks()
                if track[0] == self.model.mode and abs(track[1] - self.model.index) <= 1]
        track = self.random.choice(near or self._whole_tracks())
        content = self.random.choice(sorted(DAMAGES))
        title = self._walk.titles[track]
        if content == "half":
            self.model.half = self._machine.tracks.truncate(title)
        elif content == "other":
            self._machine.tracks.replace(title, "other.m4a")
        else:
            getattr(self._machine.tracks, DAMAGES[content])(title)
        self.model.damage(track, content)
        return f"{track[0]} {track[1] + 1}: {content}"

    def restore_track(self):
        track = self.random.choice(self._damaged_tracks())
        self._restore(track)
        return f"{track[0]} {track[1] + 1}"

    def restore_all(self, mode):
        for track in [track for track in self._damaged_tracks() if track[0] == mode]:
            self._restore(track)

    def _restore(self, track):
        self._machine.tracks.restore(self._walk.titles[track])
        self.model.damage(track, None)

    def covers(self):
        fault = self.random.choice(COVER_FAULTS)
        getattr(self._machine, fault)()
        return fault.partition("_")[0]

    # The disk with the user's folders.

    def spoil_disk(self):
        self.model.disk = self.random.choice(sorted(DISK_FAULTS))
        getattr(self._machine.disk, DISK_FAULTS[self.model.disk][0])()
        return self.model.disk

    def mend_disk(self):
        getattr(self._machine.disk, DISK_FAULTS[self.model.disk][1])()
        self.model.disk = None
        self._machine.check_preference()

    def memory_shortage(self):
        before = resident_megabytes(self.desk.player.process.pid)
        waited = self._machine.memory.run(MEMORY_SECONDS)
        after = resident_megabytes(self.desk.player.process.pid)
        self.model.lose_music(2)
        return f"{waited:.1f} s waited, {before:.0f} to {after:.0f} MB"

    def no_descriptors(self):
        """Presses while nothing can be opened."""
        descriptors = Descriptors(self.desk.player.process.pid)
        details = [f"{descriptors.take()} open"]
        self.model.has_descriptors = False
        try:
            for _ in range(self.random.randint(1, 3)):
                weights, steps = zip(*self._presses(), strict=True)
                step, = self.random.choices(steps, weights)
                self._walk.wait_for_end_of_track()
                # Windows that have closed have given some back.
                descriptors.take()
                details.append(f"{step.__name__} {step() or ''}".strip())
                self._walk.wait_for_agreement("no descriptors")
        finally:
            descriptors.give_back()
            self.model.has_descriptors = True
        return ", ".join(details)

    def _presses(self):
        user, = (kind for kind in self._walk.kinds if isinstance(kind, UserSteps))
        return [step for step in user.possible() if step[1].__name__ in PRESSES]

    # Clocks.

    def set_wall_clock(self):
        clocks = self.desk.session.clocks
        seconds = self.random.choice((-1, 1)) * self.random.choice((1, 60, 3600, DAY, 300 * DAY))
        clocks.set_wall(clocks.wall + seconds)
        return f"by {seconds} s"

    def sleep(self):
        """The machine sleeps, with all that is in the player's and the sound server's minds. It takes a moment to stop
        and to go on.
        """
        stopped = self.random.uniform(0.1, 2)
        asleep = self.random.choice((10, 600, DAY))
        self.desk.freeze_player()
        if self.model.has_sound_server:
            self.desk.freeze_server()
        time.sleep(stopped)
        self.desk.session.clocks.sleep(asleep)
        if self.model.has_sound_server:
            self.desk.thaw_server()
        self.desk.thaw_player()
        self.model.lose_music(stopped + 3)
        return f"{asleep} s, stopped for {stopped:.1f} s"
