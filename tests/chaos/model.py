"""What must be seen and heard of the player after each step of a walk."""

from desktop_model import DesktopModel
from sound_servers import SINKS

MODES = ("focus", "tempo", "creative", "relaxation")
TRACKS_PER_MODE = 16


class Model(DesktopModel):
    """The state of the player, as the steps so far have made it. Times are seconds. A track is a mode and a place."""

    def __init__(self, track_seconds, now):
        super().__init__()
        self._track_seconds = track_seconds
        self._now = now
        self.mode = None
        self.index = 0
        self.is_playing = False
        # The track of the last load that did not fail, and whether it sounds.
        self.loaded = None
        self.sounds = False
        # How much of the loaded track has been heard: at least and at most.
        self.heard = [0.0, 0.0]
        # When it ends: at the earliest and at the latest. It has ended if no other one could be loaded after it.
        self.length = [track_seconds, track_seconds]
        self.has_ended = False
        # What was in the loaded track's file; whether the file is still the one that was opened.
        self.loaded_file = None
        self.is_loaded_file_there = False

        self.missing_mode = None
        # What is in the files of tracks that are not whole: "nothing", "garbage", "half", "other".
        self.files = {}
        # The share of the music in a file with its first half.
        self.half = 0.5
        # "full" or "read-only" for the disk with the user's folders.
        self.disk = None
        self.failed_loads = 0
        self.has_sound_server = True
        # The sinks of the server, but for a headset; the one that stands still.
        self.sinks = set(SINKS)
        self.has_headset = False
        self.suspended_sink = None

    @property
    def track(self):
        return self.mode, self.index

    @property
    def can_be_heard(self):
        """Whether music would be heard now. Otherwise nobody knows what is."""
        return self.has_sound_server and self.suspended_sink is None and bool(self.sinks)

    def pass_time(self, now):
        """The clock has gone on. Without a sound server nothing is heard, but it may just have come or gone."""
        seconds, self._now = now - self._now, now
        if self.sounds:
            self.heard[1] += seconds
            if self.can_be_heard:
                self.heard[0] += seconds

    def lose_server(self):
        self.has_sound_server = False
        self.lose_music(3)

    def lose_music(self, seconds):
        """So much less may have been heard, because of a fault."""
        self.heard[0] = max(0.0, self.heard[0] - seconds)

    def select(self, mode):
        self.mode, self.index = mode, 0
        self._load()

    def press_mode(self, mode):
        """The button of a mode: that of the current one pauses and resumes."""
        if mode == self.mode:
            self.toggle()
        else:
            self.select(mode)

    def press_transport(self):
        """The play button starts the mode anew, while the mode's own button resumes."""
        if self.is_playing:
            self.toggle()
        else:
            self.select(self.mode)

    def media_command(self, command):
        if command == "PlayPause" or (command == "Play") != self.is_playing:
            self.toggle()

    def toggle(self):
        if self.loaded is None:
            return
        if self.has_ended:
            self._play_again()
            return
        self.sounds = not self.sounds
        self.is_playing = self.sounds

    def step(self, by):
        self.index = (self.index + by) % TRACKS_PER_MODE
        self._load()

    def _load(self):
        self.is_playing = self._can_open(self.track)
        if self.is_playing:
            self._open(self.track)
        else:
            self.failed_loads += 1

    def _play_again(self):
        """The track has ended, and none has followed. Its player opens the file anew."""
        if self._can_open(self.loaded):
            self._open(self.loaded)
            self.is_playing = True
        else:
            self.step(1)

    def _can_open(self, track):
        if track[0] == self.missing_mode or self.files.get(track) in ("nothing", "garbage"):
            return False
        # A track that has ended has closed its file.
        return self.has_descriptors or self.has_ended

    def _open(self, track):
        self.loaded, self.sounds, self.has_ended, self.heard = track, True, False, [0.0, 0.0]
        self.loaded_file, self.is_loaded_file_there = self.files.get(track), True
        self.length = [self._track_seconds, self._track_seconds]
        if self.loaded_file == "half":
            end = self.half * self._track_seconds
            self.length = [end - 1, end + 1]

    def damage(self, track, content):
        """From now on its file holds this; nothing for what belongs there."""
        if track == self.loaded and content == "half" and self.is_loaded_file_there and self.loaded_file is None:
            # What was read ahead is still played.
            end, read_ahead = self.half * self._track_seconds, 10
            earliest, latest = max(end - 1, self.heard[0]), max(end + 1, self.heard[1] + read_ahead)
            self.length = [min(earliest, self._track_seconds), min(latest, self._track_seconds)]
        elif track == self.loaded:
            self.is_loaded_file_there = False
        if content:
            self.files[track] = content
        else:
            del self.files[track]

    @property
    def expected_position(self):
        """The least and the most that the position in the track can be."""
        if self.has_ended:
            return tuple(self.length)
        return self.heard[0], min(self.heard[1], self.length[1])

    def may_have_ended(self, slack):
        return self.sounds and self.heard[1] > self.length[0] - slack

    def must_have_ended(self, slack):
        return self.sounds and self.heard[0] > self.length[1] + slack

    def end_track(self):
        """The track that sounds has ended by itself, maybe a while ago."""
        since = max(0.0, self.heard[1] - self.length[0])
        self.sounds, self.has_ended = False, True
        self.step(1)
        self.heard[1] = since if self.sounds else 0

    @property
    def position_text(self):
        return f"{self.index + 1} / {TRACKS_PER_MODE}" if self.mode else "1 / 3"
